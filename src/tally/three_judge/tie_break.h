#pragma once

class Connection;

// Settles the ties of the event's highland_results through tie_break. Run by
// Tally_Overall inside its transaction, after the ranking is written.
void Break_Ties(Connection &conn);
