#pragma once
#include "overall_settings.h"
#include "tally/tally_transaction.h"

class Connection;

// Recalc_Overall: the place points of the event's dances summed per dancer and
// ranked into overall_results; with Split_Overalls "Y" also over dance ids up
// to 5 into highland_results and from 6 into national_results (by id, not by
// category). Works on Current_Competition_Id and Current_Group_Id; uses
// No_Overall_Prizes, Split_Overalls and Dance_Filter of the settings.
//
// Equal sums share the place and are not broken; a dancer never placed in a
// dance is not listed. First a deliberate pause of about a second in 20 steps,
// reported through progress (0, then 1 to 20, of 20); the caller then reloads
// its result grids and hides the bar.
//
// Each pass deletes its table's rows and writes them anew, in one transaction
// committed even after a fault.
void Recalc_Overall(Connection &conn, const Overall_Settings &settings, const Tally_Progress &progress = {});
