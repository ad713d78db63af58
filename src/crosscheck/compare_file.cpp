#include "compare_file.h"

#include "core/codec.h"
#include "core/database_file.h"
#include "core/db.h"
#include "core/errors.h"
#include "core/globals.h"
#include "core/routines.h"

#include <QDir>
#include <QFile>

namespace {

const QChar Tab = QLatin1Char('\t');

QString Event_Where(const QString &prefix)
{
    return prefix + QStringLiteral("competition_id = ") + QString::number(Current_Competition_Id) + QStringLiteral(" AND ")
           + prefix + QStringLiteral("group_id = '") + Sql_Quote(Current_Group_Id) + QStringLiteral("'");
}

// Each row becomes "kind TAB field TAB field ..." in the order of its columns.
void Append_Rows(Connection &conn, const QString &sql, const QString &kind, QStringList &out)
{
    RowSet rs = conn.query(sql);
    for (; !rs.eof(); rs.next()) {
        QString line = kind;
        for (int f = 0; f < rs.fieldCount(); ++f)
            line += Tab + rs.value(f).toString();
        out << line;
    }
}

} // namespace

QStringList Compare_Lines(Connection &conn, short type)
{
    QStringList lines;
    if (type != Compare_Three_Judge) {
        Append_Rows(conn,
                    QStringLiteral("SELECT competitor_id, placing, dance_id FROM overall_dance_results WHERE ")
                        + Event_Where(QString()) + QStringLiteral(" ORDER BY 3,2,1"),
                    QStringLiteral("1"), lines);
        return lines;
    }
    Append_Rows(conn,
                QStringLiteral("SELECT competitor_id, placing, dance_id, result_no FROM dance_results WHERE ")
                    + Event_Where(QString()) + QStringLiteral(" ORDER BY 3,4,2,1"),
                QStringLiteral("2"), lines);
    // A missing place or tie mark joins as empty text; the blank between stays.
    Append_Rows(conn,
                QStringLiteral("SELECT c.competitor_id, ifnull(d.placing, '') || ' ' || ifnull(d.tie, '') AS placing, "
                               "d.dance_id FROM overall_dance_results d, competitors c WHERE c.competition_id = ")
                    + QString::number(Current_Competition_Id) + QStringLiteral(" AND d.group_id = '")
                    + Sql_Quote(Current_Group_Id) + QStringLiteral("' AND d.competition_id = ")
                    + QString::number(Current_Competition_Id)
                    + QStringLiteral(" AND c.competitor_id = d.competitor_id AND d.points > 0 "
                                     "ORDER BY d.dance_id, d.points DESC, d.placing, 1"),
                QStringLiteral("1"), lines);
    return lines;
}

void Write_Compare_File_To(Connection &conn, short type, const QString &folder, const QString &eventName)
{
    const QStringList lines = Compare_Lines(conn, type);
    QString text;
    for (const QString &line : lines)
        text += line + QStringLiteral("\r\n");
    // The name goes in as the event list shows it: a "/" in it is a fault.
    const QString path = QDir(folder).path() + QLatin1Char('/') + eventName + QStringLiteral(".cmp");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw AppError(QStringLiteral("Path/File access error: ") + path);
    const QByteArray bytes = To_1252(text);
    if (file.write(bytes) != bytes.size())
        throw AppError(QStringLiteral("Device I/O error: ") + path);
}

void Write_Compare_File(Connection &conn, short type, const QString &eventName)
{
    Write_Compare_File_To(conn, type, Data_Sub_Dir(QStringLiteral("Compare")), eventName);
}

bool Write_Compare_File_If_Checking(Connection &conn, short type, const QString &eventName)
{
    if (Opt_Check_Mode != 1)
        return false;
    Write_Compare_File(conn, type, eventName);
    return true;
}

void Write_Compare_File(short type, const QString &eventName)
{
    Connection conn;
    conn.open();
    Write_Compare_File(conn, type, eventName);
}
