#pragma once
#include <QString>

class Connection;

// Database work of the judges screen, apart from its widgets.

void Insert_Judge(Connection &conn, short competitionId, const QString &forename, const QString &surname);
// Only the record of which judge gave which marks goes; the marks stay.
// Nothing happens for a row never saved (empty id).
void Delete_Judge_Dependents(Connection &conn, short competitionId, const QString &judgeIdText);
