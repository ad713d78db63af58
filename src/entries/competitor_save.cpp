#include "competitor_save.h"
#include "competitor_columns.h"
#include "core/db.h"
#include "core/routines.h"

namespace {

QString quoted(const QString &text)
{
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

void Delete_Groups(Connection &conn, const QString &id, const QString &number)
{
    conn.execute(QStringLiteral("DELETE FROM competitor_groups WHERE competition_id = ") + id
                 + QStringLiteral(" AND competitor_id = ") + Bare_Number(number));
}

void Insert_Group(Connection &conn, const QString &id, const QString &number, const QString &code)
{
    conn.execute(QStringLiteral("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES (") + id
                 + QLatin1Char(',') + Bare_Number(number) + QStringLiteral(",'") + Sql_Quote(code) + QStringLiteral("')"));
}

} // namespace

QString Text_Or_Null(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("Null") : Bare_Number(text);
}

QString Quoted_Or_Null(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("NULL") : quoted(Sql_Quote(text.toUpper()));
}

QString New_Competitor_Insert(short competitionId, const QStringList &c)
{
    using namespace Competitor_Col;
    QStringList v;
    v << QString::number(competitionId)
      << Bare_Number(c[Number])
      << quoted(Sql_Quote(c[Forename])) << quoted(Sql_Quote(c[Surname]))
      << Text_Or_Null(c[Age])
      << quoted(Sql_Quote(c[5])) << quoted(Sql_Quote(c[6]))
      << quoted(Sql_Quote(c[7])) << quoted(Sql_Quote(c[Postcode]))
      << Quoted_Or_Null(c[Fee]) << Quoted_Or_Null(c[Date_Received]) << Quoted_Or_Null(c[11])
      << quoted(Sql_Quote(c[Notes]));
    for (int col = Custom1; col <= Last_Event; ++col)
        v << Quoted_Or_Null(c[col]);
    return QStringLiteral("INSERT INTO competitors(") + Competitor_Fields().join(QStringLiteral(", "))
           + QStringLiteral(") VALUES (") + v.join(QLatin1Char(',')) + QLatin1Char(')');
}

void Insert_New_Competitor(Connection &conn, short competitionId, const QStringList &cells)
{
    using namespace Competitor_Col;
    const QString id = QString::number(competitionId);
    // The dancer and the entries are one unit: all written, or none.
    In_Savepoint(conn, [&] {
        conn.execute(New_Competitor_Insert(competitionId, cells));
        Delete_Groups(conn, id, cells[Number]);
        for (int col = First_Event; col <= Last_Event; ++col)
            if (!cells[col].isEmpty())
                Insert_Group(conn, id, cells[Number], cells[col].toUpper());
    });
}

void Write_Edited_Competitor(Connection &conn, short competitionId, RecordSet &rows, int rsRow,
                             const QStringList &cells)
{
    using namespace Competitor_Col;
    const QString id = QString::number(competitionId);
    // The entries are deleted and written anew with the row: one unit, so a
    // fault never leaves the dancer's entries deleted and not written back.
    In_Savepoint(conn, [&] {
        Delete_Groups(conn, id, cells[Number]);
        for (int col = Number; col < Count; ++col) {
            const QString &text = cells[col];
            if (text.isEmpty()) {
                rows.setValue(rsRow, col, QVariant());
            } else if (col >= Custom4) {
                // From Field4 on, every filled cell is also written as an event, as typed.
                Insert_Group(conn, id, cells[Number], text);
                rows.setValue(rsRow, col, text.toUpper());
            } else if (col == Date_Received || (col >= Notes && col <= Custom3)) {
                rows.setValue(rsRow, col, text);
            } else {
                rows.setValue(rsRow, col, text.toUpper());
            }
        }
        rows.update(rsRow);
    });
}
