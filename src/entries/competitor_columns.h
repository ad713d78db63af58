#pragma once
#include <QString>
#include <QStringList>

// The competitors grid: 25 columns, each the field of the same place in the
// grid's statement. Column 0 is hidden and holds the competition.
namespace Competitor_Col {
constexpr int Competition = 0;
constexpr int Number = 1;
constexpr int Forename = 2;
constexpr int Surname = 3;
constexpr int Age = 4;
constexpr int Postcode = 8;
constexpr int Fee = 9;
constexpr int Date_Received = 10;
constexpr int Notes = 12;
constexpr int Custom1 = 13;
constexpr int Custom3 = 15;
constexpr int Custom4 = 16;
constexpr int First_Event = 17;
constexpr int Last_Event = 24;
constexpr int Count = 25;
}

// Field names in grid order.
const QStringList &Competitor_Fields();
// Caption row of the grid.
const QStringList &Competitor_Captions();
// Column widths in twips, as the screen lays them out.
const QList<int> &Competitor_Widths();

// The plain statement behind the grid, without its order.
QString Competitor_Statement(short competitionId);
