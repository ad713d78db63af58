#pragma once
#include <QString>

// What the search panel holds when Search is pressed.
struct Competitor_Search
{
    QString groupCode;          // the chosen event, empty for none
    bool winnersOnly = false;   // chk_winners
    QString number;             // SearchNo
    QString forename;           // SearchForename
    QString surname;            // SearchSurname
    QString teacher;            // SearchTeacher
    QString ageFrom;            // SearchAgeFrom
    QString ageTo;              // SearchAgeTo
    QString registeredFilter;   // stored by the registered list
    QString order = QStringLiteral("2 DESC");
};

// Item data of Search_Registered.
enum Registered_Choice { Reg_No_Card = 0, Reg_Registered = 1, Reg_Not_Registered = 2, Reg_All = 3 };
// The filter stored after choosing an item; "All" keeps the earlier one.
QString Registered_Filter(int itemData, const QString &current);

// Item data of SearchOrder to the stored order.
QString Search_Order(int itemData);

// The statement that replaces the grid's.
QString Search_Statement(short competitionId, const Competitor_Search &s);
