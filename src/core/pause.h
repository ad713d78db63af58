#pragma once

// Every deliberate wait of the program (splash, the second of tallying, the
// export steps) goes through here: it sleeps while window events keep running.
// With the input held (a tally's second) the operator's keys and clicks wait
// in the queue until the pause is over, and then reach the cells they were
// typed into.
enum class Pause_Input { Handled, Held };
void Pause_Ms(int ms, Pause_Input input = Pause_Input::Handled);

// Factor applied to every pause; tests set it to 0.
void Set_Pause_Scale(double scale);
double Pause_Scale();
