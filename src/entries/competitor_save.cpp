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
                 + QStringLiteral(" AND competitor_id = ") + number);
}

void Insert_Group(Connection &conn, const QString &id, const QString &number, const QString &code)
{
    conn.execute(QStringLiteral("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES (") + id
                 + QLatin1Char(',') + number + QStringLiteral(",'") + code + QStringLiteral("')"));
}

} // namespace

QString Text_Or_Null(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("Null") : text;
}

QString Quoted_Or_Null(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("NULL") : quoted(text.toUpper());
}

QString New_Competitor_Insert(short competitionId, const QStringList &c)
{
    using namespace Competitor_Col;
    QStringList v;
    v << QString::number(competitionId)
      << c[Number]
      << quoted(Sql_Quote(c[Forename])) << quoted(Sql_Quote(c[Surname]))
      << Text_Or_Null(c[Age])
      << quoted(Sql_Quote(c[5])) << quoted(Sql_Quote(c[6]))
      << quoted(c[7]) << quoted(c[Postcode])              // town and postcode go in unescaped
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
    conn.execute(New_Competitor_Insert(competitionId, cells));
    Delete_Groups(conn, id, cells[Number]);
    for (int col = First_Event; col <= Last_Event; ++col)
        if (!cells[col].isEmpty())
            Insert_Group(conn, id, cells[Number], cells[col].toUpper());
}

void Write_Edited_Competitor(Connection &conn, short competitionId, RecordSet &rows, int rsRow,
                             const QStringList &cells)
{
    using namespace Competitor_Col;
    const QString id = QString::number(competitionId);
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
}
