#pragma once
#include <QString>

class Connection;
class Report;

// The two sheets of a Competition event, filled for the current competition
// and event (Current_Competition_Id, Current_Group_Id) as text, line by line.

// The event report (DataReport3): a column per dance with a placed dancer,
// in dance order, the overall winners (and with splitOveralls "Y" the
// Highland and National winners beside them) and the call-back numbers.
void Fill_Event_Report(Connection &conn, Report &report, const QString &eventName, const QString &splitOveralls);

// The call-back sheet (DataReport6): every placed dancer of the event, by
// number, with name and town.
void Fill_Callback_Report(Connection &conn, Report &report, const QString &eventName);
