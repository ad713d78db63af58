#pragma once

class QListWidget;
class QTableWidget;
class QWidget;

// Today's fonts are wider than the twip widths the screens were drawn for.
// A kept table widens each shown column to its caption and its widest value
// (up to a limit), never below the width the screen gave it; a kept list
// never scrolls sideways: it widens to its longest entry where its place and
// its screen's spare room allow, and an entry still cut shows whole in its
// tool tip. Both follow every change of content.
// A table whose sideways scroll bar is turned off is left to its screen.
void Keep_Columns_Fitted(QTableWidget *table);
// A table that never scrolls sideways: its last column takes the width the
// others leave, and a value cut short there shows whole in its tool tip.
void Keep_Last_Column_Filling(QTableWidget *table);
void Keep_List_Fitted(QListWidget *list);
// Every table and list of a screen.
void Keep_Screen_Fitted(QWidget *screen);
