#pragma once
#include "tally/tally_transaction.h"

class Connection;

// Results of Premiership and Championship events: three judges mark every
// dancer in each of four dances. One implementation serves both screens. All
// work on Current_Competition_Id and Current_Group_Id; Tally_Dance also on
// Current_Dance_Id. Each runs in one transaction, committed even after a
// fault; what ran before the fault stays and the next tally repairs the rest.

// Tally_Dance: each judge's marks of the current dance ranked into that
// judge's top six (and ties at sixth) in dance_results; a mark of 0, NULL or
// -1 ("D") drops out for that judge only. The judges' points are summed and
// ranked without cut-off into overall_dance_results: places 7 and below keep
// their row with points 0; an untied row's tie is one blank, tied rows "=".
// A pass that must hold a 22nd row is the fault "Subscript out of range".
void Tally_Dance(Connection &conn);

// The re-tally of an event on selection: Tally_Dance for the dance ids 1, 2,
// 3 and 4 by literal value, Premierships too. Leaves Current_Dance_Id at 4;
// the screen restores its own dance.
void Tally_Event_Dances(Connection &conn);

// Tally_Overall: the dances' place points summed per dancer and ranked into
// highland_results (top six and ties at sixth), then ties settled through
// tie_break by most dances won, then most judges' points, then most judges'
// placings. First a deliberate pause of just over a second, reported through
// progress (0, then 0 to 19 of 20, and 20 at the end); the caller then
// reloads its result grids and hides the bar.
void Tally_Overall(Connection &conn, const Tally_Progress &progress = {});
