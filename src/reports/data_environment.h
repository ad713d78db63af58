#pragma once
#include <QString>

// The named commands that reports run for their rows, by the names the
// screens use: Command2 (no rows; the source of every label-filled sheet),
// lineups (competition id, event code), callbacks (competition id, event
// code, last place) and SQL_comp. An unknown name is a fault.
QString Command_Sql(const QString &command);
