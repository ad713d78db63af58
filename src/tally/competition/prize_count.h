#pragma once

class Connection;

// How many dancers may be placed in a dance (No_Prizes). All work on
// Current_Competition_Id, Current_Group_Id and Current_Dance_Id.

// Item value of the AUTO entry of the prize list: the count follows the
// number of dancers, from system_no_prizes.
inline constexpr short Auto_No_Prizes = -99;

struct Prize_Choice
{
    short No_Prizes = 0;
    bool From_Dance = false;   // the dance has its own row in dance_no_prizes
};

// The event's count, replaced by the dance's own row when there is one (the
// last row read wins).
Prize_Choice Choose_No_Prizes(Connection &conn, short eventNoPrizes);

// The prize count for so many dancers. No matching row is an end-of-data fault.
short System_No_Prizes(Connection &conn, int dancers);

// A new choice on the prize list, written through at once: itemValue is the
// selected entry's value (1 to 15, 0 for the entry "16", or Auto_No_Prizes);
// markedCells the count of non-empty mark cells, used by the AUTO entry only.
// Returns the new No_Prizes, which is the item value itself.
short Set_Dance_No_Prizes(Connection &conn, short itemValue, int markedCells);
