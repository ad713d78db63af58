#pragma once
#include "compare_run.h"

#include <QString>

class Connection;
class QWidget;

// The check of both mark screens: compares the other computer's file for the
// event with this computer's results and tells the operator. "Comp" shows a
// difference on the Result Checker sheet; "Champ" says "!!! NO MATCH !!!" and
// leaves the two sides in Check_Text_1 and Check_Text_2, which a match
// empties. Database faults reach the caller's handler.
Compare_Outcome Run_Check(Connection &conn, const QString &eventName, const QString &mode, QWidget *parent);
