#pragma once

class Report;
struct Compare_Outcome;

// Fills the Result Checker sheet (DataReport7) with the first pair of lines
// that differ: a dance's result in the upper block, a judge's placing in the
// lower one, each value followed by CR LF; a missing side stays as a bare
// line end.
void Fill_Check_Report(Report &report, const Compare_Outcome &outcome);
