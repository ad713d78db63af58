#include "entries_file.h"
#include "online_entries.h"

#include "core/db.h"
#include "core/routines.h"

namespace {

using namespace Entries_File;

QString Quoted(const QString &text) { return QLatin1Char('\'') + Sql_Quote(text) + QLatin1Char('\''); }

// Age and fee go into the statement bare: only a number may.
QString Number(const QString &text)
{
    bool ok = false;
    const double v = text.trimmed().toDouble(&ok);
    if (!ok || text.trimmed().isEmpty())
        throw AppError(QStringLiteral("Syntax error in INSERT INTO statement."));
    return QString::number(v, 'g', 15);
}

short First_Number(const QString &text)
{
    bool ok = false;
    const qint64 v = text.trimmed().toLongLong(&ok);
    if (!ok)
        throw AppError(QStringLiteral("Type mismatch"));
    return To_Int16(v);
}

} // namespace

int Load_Entries(Connection &conn, short competitionId, const QString &firstNumber, const QList<QStringList> &rows,
                 const QDate &today)
{
    short number = First_Number(firstNumber);
    const QString comp = QString::number(competitionId);
    int count = 0;
    // What ran before a fault stays, at one sync.
    Transaction work(conn);
    for (int r = 1; r < rows.size(); ++r) {
        const QStringList &row = rows[r];
        if (row.value(Col_Firstname).isEmpty())
            continue;
        // A number held anywhere (an entry, a mark, a result) would take on its events and marks.
        while (conn.scalar(QStringLiteral("SELECT count(*) FROM (") + Competitor_Numbers_Sql(competitionId)
                           + QStringLiteral(") WHERE competitor_id = ") + QString::number(number)).toInt() > 0)
            number = To_Int16(static_cast<qint64>(number) - 1);
        // A row goes in whole or not at all.
        In_Savepoint(conn, [&] {
            QStringList groups;
            const QStringList ids = row.value(Col_Events).trimmed().split(QLatin1Char(' '));
            for (const QString &group : ids) {
                conn.execute(QStringLiteral("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES (")
                             + comp + QLatin1Char(',') + QString::number(number) + QLatin1Char(',') + Quoted(group)
                             + QLatin1Char(')'));
                if (groups.size() == 8)
                    throw AppError(QStringLiteral("Subscript out of range"));
                groups << group;
            }
            while (groups.size() < 8)
                groups << QString();
            QStringList groupTexts;
            for (const QString &g : groups)
                groupTexts << Quoted(g);
            const QString town = row.value(Col_City) + QStringLiteral(", ")
                                 + QString(row.value(Col_Country)).replace(QLatin1String("GB"), QLatin1String("UK"));
            conn.execute(
                QStringLiteral("insert into competitors (competition_id, competitor_id, forename, surname, town, age, fee, "
                               "date_received, address1, address2, teacher, postcode, txnid, group_id1, group_id2, "
                               "group_id3, group_id4, group_id5, group_id6, group_id7, group_id8) values (")
                + comp + QLatin1Char(',') + QString::number(number) + QLatin1Char(',') + Quoted(row.value(Col_Firstname))
                + QLatin1Char(',') + Quoted(row.value(Col_Lastname)) + QLatin1Char(',') + Quoted(town) + QLatin1Char(',')
                + Number(row.value(Col_Age)) + QLatin1Char(',') + Number(row.value(Col_Fee)) + QLatin1Char(',')
                + Quoted(today.toString(QStringLiteral("dd/MM/yyyy"))) + QLatin1Char(',') + Quoted(row.value(Col_Addr1))
                + QLatin1Char(',') + Quoted(row.value(Col_Addr2)) + QLatin1Char(',') + Quoted(row.value(Col_Teacher))
                + QLatin1Char(',') + Quoted(row.value(Col_Zip)) + QLatin1Char(',') + Quoted(row.value(Col_Txn))
                + QLatin1Char(',') + groupTexts.join(QLatin1Char(',')) + QLatin1Char(')'));
        });
        number = To_Int16(static_cast<qint64>(number) - 1);
        ++count;
    }
    return count;
}

QString Competitor_Numbers_Sql(short competitionId)
{
    QStringList parts;
    for (const char *table : {"competitors", "competitor_groups", "comp_judges_results", "judges_results", "dance_results",
                              "overall_dance_results", "overall_results", "highland_results", "national_results",
                              "tie_break"})
        parts << QStringLiteral("SELECT competitor_id FROM ") + QLatin1String(table)
                     + QStringLiteral(" WHERE competition_id = ") + QString::number(competitionId);
    return parts.join(QStringLiteral(" UNION ALL "));
}

QString Loaded_Label(int count) { return QString::number(count) + QStringLiteral(" Records Successfully Loaded"); }
