#include "csv_import.h"
#include "sql_values.h"

#include "core/db.h"
#include "core/errors.h"
#include "core/routines.h"

const QStringList &Csv_Field_Names()
{
    static const QStringList names = {"Number", "Firstname", "Lastname", "Age", "Address1", "Address2",
                                      "Town", "Postcode", "Fee Paid", "Date Rcd", "Teacher", "Notes",
                                      "Event1", "Event2", "Event3", "Event4", "Event5", "Event6",
                                      "Event7", "Event8", "Field1", "Field2", "Field3", "Field4"};
    return names;
}

namespace {

const QString Blank = QStringLiteral("<Blank>");

QString Item_Text(int index, const QStringList &sample)
{
    const QString value = sample.value(index);
    return QStringLiteral("<Field ") + QString::number(index + 1) + QLatin1Char('>')
           + (value.isEmpty() ? QString() : QLatin1Char(' ') + value);
}

bool Is_Number_Position(int p)
{
    return p == 3 || p == 8;
}

// A number place holds a number, or NULL for an empty age or fee.
QString Number_Value(const QString &value, const char *what)
{
    if (value.trimmed().isEmpty())
        throw AppError(QStringLiteral("the %1 is missing.").arg(QLatin1String(what)));
    try {
        return Bare_Value(value);
    } catch (const AppError &) {
        const QString shown = QString(value).replace(QStringLiteral("''"), QStringLiteral("'"));
        throw AppError(QStringLiteral("the %1 \"%2\" is not a number.").arg(QLatin1String(what), shown));
    }
}

bool All_Empty(const QStringList &fields)
{
    for (const QString &f : fields)
        if (!f.trimmed().isEmpty())
            return false;
    return true;
}

} // namespace

Csv_File Read_Csv(const QString &text, const QString &delimiter)
{
    Csv_File file;
    file.lines = (text + QStringLiteral("\r\n")).split(QStringLiteral("\r\n"), Qt::KeepEmptyParts, Qt::CaseInsensitive);
    file.highest = file.lines.size() - 1;
    file.sample = file.lines.first().split(delimiter, Qt::KeepEmptyParts, Qt::CaseInsensitive);
    file.width = file.sample.size() - 1;
    for (int i = 1; i < file.highest; ++i) {
        const QStringList fields = file.lines.at(i).split(delimiter, Qt::KeepEmptyParts, Qt::CaseInsensitive);
        if (fields.size() - 1 > file.width) {
            file.width = fields.size() - 1;
            file.sample = fields;
        }
    }
    return file;
}

Csv_Lists Build_Csv_Lists(const Csv_File &file, const QString &delimiter, bool header, bool byHeadings)
{
    Csv_Lists lists;
    if (!(header && byHeadings)) {
        for (int i = 0; i <= file.width; ++i)
            lists.unplaced << Csv_Item{Item_Text(i, file.sample), i};
        lists.unplaced << Csv_Item{Blank, -1};
        return lists;
    }
    const QStringList headings = file.lines.first().split(delimiter, Qt::KeepEmptyParts, Qt::CaseInsensitive);
    const QStringList sample = file.highest > 1 ? file.lines.at(1).split(delimiter, Qt::KeepEmptyParts, Qt::CaseInsensitive)
                                                : QStringList();
    QList<int> matched(Csv_Positions, -1);
    QList<bool> used(headings.size(), false);
    for (int h = 0; h < headings.size(); ++h) {
        const QString heading = QString(headings.at(h)).remove(QLatin1Char('"')).trimmed();
        for (int q = 0; q < Csv_Positions; ++q)
            if (Csv_Field_Names().at(q).compare(heading, Qt::CaseInsensitive) == 0) {
                matched[q] = h;
                used[h] = true;
            }
    }
    for (int q = 0; q < Csv_Positions; ++q)
        lists.placed << (matched[q] >= 0 ? Csv_Item{headings.at(matched[q]), matched[q]} : Csv_Item{Blank, -1});
    // The fields no heading placed stay to be dragged across.
    for (int h = 0; h < headings.size(); ++h)
        if (!used[h])
            lists.unplaced << Csv_Item{Item_Text(h, sample), h};
    lists.unplaced << Csv_Item{Blank, -1};
    return lists;
}

QString Csv_Result::message() const
{
    QString text = QString::number(count) + QStringLiteral(" rows were successfully loaded. ");
    if (line > 0)
        text += QStringLiteral("Line %1: ").arg(line) + reason;
    return text;
}

Csv_Result Import_Csv(Connection &conn, short competitionId, const Csv_File &file, const QString &delimiter,
                      bool header, const QList<int> &map, const std::function<void(int line)> &step)
{
    Transaction work(conn);
    const QString id = QString::number(competitionId);
    Csv_Result result;
    int &count = result.count;
    for (int i = header ? 1 : 0; i < file.highest; ++i) {
        QString line = Sql_Quote(file.lines.at(i));
        line.remove(QLatin1Char('"'));
        const QStringList fields = line.split(delimiter, Qt::KeepEmptyParts, Qt::CaseInsensitive);
        // A spreadsheet leaves rows of bare delimiters behind its data.
        if (fields.size() >= 3 && !All_Empty(fields)) {
            QStringList v;
            for (int p = 0; p < Csv_Positions; ++p) {
                const int at = p < map.size() ? map.at(p) : -1;
                const QString value = at >= 0 && at < fields.size() ? fields.at(at) : QString();
                v << (value.isEmpty() && Is_Number_Position(p) ? QStringLiteral("NULL") : value);
            }
            try {
                In_Savepoint(conn, [&] {
                    const QString number = Number_Value(v[0], "competitor number");
                    const QString age = v[3] == QLatin1String("NULL") ? v[3] : Number_Value(v[3], "age");
                    const QString fee = v[8] == QLatin1String("NULL") ? v[8] : Number_Value(v[8], "fee");
                    conn.execute("DELETE FROM competitors WHERE competition_id = " + id + " AND competitor_id = " + number);
                    conn.execute("DELETE FROM competitor_groups WHERE competition_id = " + id + " AND competitor_id = "
                                 + number);
                    QStringList middle, tail;
                    for (int p = 4; p <= 7; ++p)
                        middle << v[p];
                    for (int p = 9; p <= 23; ++p)
                        tail << v[p];
                    conn.execute("INSERT INTO competitors (competition_id, competitor_id, forename, surname, age, "
                                 "address1, address2, town, postcode, fee, date_received, teacher, notes, group_id1, "
                                 "group_id2, group_id3, group_id4, group_id5, group_id6, group_id7, group_id8, custom1, "
                                 "custom2, custom3, custom4) VALUES(" + id + "," + number + ",'" + v[1] + "','" + v[2]
                                 + "'," + age + ",'" + middle.join("','") + "'," + fee + ",'"
                                 + tail.join("','") + "')");
                    ++count;
                    // An unknown or repeated event never stops the load: a repeat goes in once.
                    QStringList entered;
                    for (int p = 12; p <= 19; ++p) {
                        if (v[p].isEmpty() || entered.contains(v[p], Qt::CaseInsensitive))
                            continue;
                        entered << v[p];
                        try {
                            conn.execute("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES ("
                                         + id + "," + number + ",'" + v[p] + "')");
                        } catch (const AppError &) {
                        }
                    }
                });
            } catch (const AppError &e) {
                result.line = i + 1;
                result.reason = e.message();
                return result;
            }
        }
        if (step)
            step(i);
    }
    return result;
}
