#pragma once

class QListWidget;
class QTableWidget;
class QWidget;

// Today's fonts are wider than the twip widths the screens were drawn for.
// A kept table widens each shown column to its caption and its widest value
// (up to a limit), never below the width the screen gave it; a kept list
// widens to its longest entry where its place allows, and an entry still
// cut shows whole in its tool tip. Both follow every change of content.
void Keep_Columns_Fitted(QTableWidget *table);
void Keep_List_Fitted(QListWidget *list);
// Every table and list of a screen.
void Keep_Screen_Fitted(QWidget *screen);
