#pragma once
#include <QString>

class Connection;

// The box of the delete button.
QString Delete_Competitor_Question();

// Removes the dancer's results and events, in one transaction. Nothing when
// the number is empty (a row never saved). Marks of Competition events are
// left: their mark screen reconciles them itself.
void Delete_Dependents(Connection &conn, short competitionId, const QString &number);
