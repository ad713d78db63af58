#pragma once
#include <QString>

class Connection;

// Each option is written to the one row of system_settings and to its global at
// once: there is nothing to save later.
enum class Switch_Option { Judges_Points, Show_Address, Auto_Save, Judges_Order };
void Set_Switch(Connection &conn, Switch_Option option, bool on);
// List positions: 0 "None", 1 "Write".
void Set_Check_Mode(Connection &conn, short position);
// List positions: 0 "UK", 1 "International".
void Set_Locale(Connection &conn, short position);
// The folder read by the result check; a name with an apostrophe is kept.
void Set_Check_Dir(Connection &conn, const QString &folder);
