#pragma once
#include <QList>
#include <QString>
#include <QStringList>

class Connection;

// Builders of test data, written with plain SQL as an operator's screens would.
namespace Fixture {

// A competition with the four standard categories and their dances; returns its id.
short Competition(Connection &conn, const QString &name = QStringLiteral("Test Games"),
                  const QString &date = QStringLiteral("01/07/2026"));
// An event of the given category; split "Y"/"N".
void Event(Connection &conn, short comp, const QString &code, const QString &name, const QString &category,
           int noPrizes = 6, const QString &split = QStringLiteral("N"), int noOverallPrizes = 6,
           const QString &incTFling = QStringLiteral("Y"));
// The dances of a category, in the order given.
void Category_Dances(Connection &conn, short comp, const QString &category, const QList<int> &danceIds);
// A dancer entered into the events given.
void Competitor(Connection &conn, short comp, int number, const QString &forename, const QString &surname,
                const QStringList &events);
// A judge; returns its id.
int Judge(Connection &conn, short comp, const QString &forename, const QString &surname);
// Number of rows of a table (with an optional WHERE).
int Count(Connection &conn, const QString &table, const QString &where = QString());

} // namespace Fixture
