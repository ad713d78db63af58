#pragma once
#include <QString>

class Connection;

// Files of every earlier version climb, rung by rung, to the present one.
// The versions are texts; a file at the top, or at a version this program
// does not know, is left as it stands.
inline const QString Top_Db_Version = QStringLiteral("4.6");

// Climbs from version to the top, or until the version reaches stopAt (tests
// build older files this way). Each rung is one unit: a rung that fails is
// rolled back whole, the file keeps the version of the last finished rung, and
// an AppError names the rung and the engine's words.
void Climb_Ladder(Connection &conn, QString version, const QString &stopAt = QString());

// A table that a rung needs and an early file may lack is made.
void Ensure_Table(Connection &conn, const QString &table);
