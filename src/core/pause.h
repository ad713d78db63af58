#pragma once

// Every deliberate wait of the program (splash, the second of tallying, the
// export steps) goes through here: it sleeps while window events keep running.
void Pause_Ms(int ms);

// Factor applied to every pause; tests set it to 0.
void Set_Pause_Scale(double scale);
double Pause_Scale();
