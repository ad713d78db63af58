#pragma once

class Connection;

// Recalc_Dance: the marks of the current dance (Current_Competition_Id,
// Current_Group_Id, Current_Dance_Id) ranked into overall_dance_results with
// place points. Marks of 0 and NULL place nobody; equal marks share the place
// and its full points; the prize count is tested only when the mark drops, so
// every dancer tied with the last prize-winner is placed.
//
// noPrizes is the screen's No_Prizes. With autoSelected (the AUTO entry of the
// prize list) and markedCells above 0 it is first replaced by the count from
// system_no_prizes for that many marked cells.
//
// Runs in one transaction, committed even after a fault. A 22nd placed dancer
// is the fault "Subscript out of range", raised before the old results are
// deleted, so they stay.
void Recalc_Dance(Connection &conn, short &noPrizes, bool autoSelected = false, int markedCells = 0);
