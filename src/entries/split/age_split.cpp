#include "age_split.h"

#include "core/db.h"
#include "core/errors.h"
#include "core/routines.h"

namespace {

// Stands for an age not yet set while a band is made.
constexpr short Unset = -99;

QString Id(short comp)
{
    return QString::number(comp);
}

// "(group_id1 = 'X' OR ... OR group_id8 = 'X')": the row's own columns say
// who is in the event.
QString In_Event(const QString &code)
{
    const QString quoted = Sql_Quote(code);
    QStringList tests;
    for (int i = 1; i <= 8; ++i)
        tests << QStringLiteral("group_id%1 = '").arg(i) + quoted + QLatin1Char('\'');
    return QLatin1Char('(') + tests.join(QStringLiteral(" OR ")) + QLatin1Char(')');
}

void Remove_Earlier_Split(Connection &conn, short comp, const QString &code)
{
    RowSet old = conn.query("SELECT competition_group_id FROM age_groups WHERE competition_id = " + Id(comp)
                            + " AND parent_group_id = '" + Sql_Quote(code) + "'");
    for (; !old.eof(); old.next()) {
        const QString child = Sql_Quote(old.text(QStringLiteral("competition_group_id")));
        conn.execute("DELETE FROM competitor_groups where competition_id = " + Id(comp) + " AND group_id = '" + child
                     + "'");
        conn.execute("DELETE FROM age_groups where competition_id = " + Id(comp) + " AND competition_group_id = '"
                     + child + "'");
    }
}

void Make_Band_Event(Connection &conn, short comp, const QString &parent, const QString &name,
                     const QString &category, const QString &stem, const Age_Band &band)
{
    const QString code = Sql_Quote(Free_Code(conn, comp, stem));
    const QString ages = band.low == band.high ? QString::number(band.low)
                                               : QString::number(band.low) + " - " + QString::number(band.high);
    conn.execute("INSERT INTO age_groups(competition_id, age_group, competition_group_id, Category, no_prizes, "
                 "split_overalls, split_ages, parent_group_id) VALUES ("
                 + Id(comp) + ",'" + Sql_Quote(name + " " + ages + " yrs") + "','" + code + "','"
                 + Sql_Quote(category) + "',6,'N','N','" + Sql_Quote(parent) + "')");
    const QString inBand = " AND age IS NOT NULL AND age >= " + QString::number(band.low)
                           + " AND age <= " + QString::number(band.high);
    conn.execute("UPDATE competitors SET group_id8 = '" + code + "' WHERE competition_id = " + Id(comp) + " AND "
                 + In_Event(parent) + inBand);
    // An earlier split's code may be given again and still stand in the
    // eighth column of dancers outside this band: they stay out of it.
    conn.execute("INSERT INTO competitor_groups (competition_id, group_id, competitor_id) SELECT " + Id(comp) + ",'"
                 + code + "', competitor_id FROM competitors WHERE competition_id = " + Id(comp)
                 + " And group_id8 = '" + code + "'" + inBand);
}

} // namespace

QList<Split_Event> Split_Events(Connection &conn, short comp)
{
    QList<Split_Event> out;
    RowSet rs = conn.query("SELECT competition_group_id, age_group FROM age_groups WHERE competition_id = " + Id(comp)
                           + " AND split_ages = 'Y' ORDER BY 2");
    for (; !rs.eof(); rs.next())
        out << Split_Event{rs.text(QStringLiteral("competition_group_id")), rs.text(QStringLiteral("age_group"))};
    return out;
}

int Earlier_Split_Count(Connection &conn, short comp, const QString &code)
{
    return conn
        .scalar("SELECT count(*) AS no_grps FROM age_groups WHERE competition_id = " + Id(comp)
                + " AND parent_group_id = '" + Sql_Quote(code) + "'")
        .toInt();
}

QList<Age_Count> Event_Ages(Connection &conn, short comp, const QString &code)
{
    QList<Age_Count> out;
    RowSet rs = conn.query("SELECT age, count(*) AS no_dancers FROM competitors WHERE competition_id = " + Id(comp)
                           + " and age IS NOT NULL AND " + In_Event(code) + " GROUP BY age ORDER BY age");
    for (; !rs.eof(); rs.next())
        out << Age_Count{rs.toShort(QStringLiteral("age")), rs.toShort(QStringLiteral("no_dancers"))};
    return out;
}

QString Age_Text(const Age_Count &age)
{
    return QStringLiteral("%1 yrs (%2 dancers)").arg(age.age).arg(age.dancers);
}

Band_Choice Make_Band(const QList<Age_Count> &ages, const QList<bool> &selected, const QList<Age_Band> &listed)
{
    int first = -1;
    int last = -1;
    short low = Unset;
    short high = Unset;
    for (int row = 0; row < ages.size() && row < selected.size(); ++row) {
        if (!selected.at(row))
            continue;
        if (first < 0) {
            first = row;
            low = ages.at(row).age;
        } else {
            last = row;
            high = ages.at(row).age;
        }
    }

    Band_Choice choice;
    for (const Age_Band &b : listed) {
        if (low < b.low && high != Unset && high > b.high) {
            choice.refused = true;
            return choice;
        }
    }
    if (first < 0)
        throw AppError(QStringLiteral("No age selected"));
    if (last < 0)
        last = first;
    for (int row = last; row >= first; --row)
        choice.dancers += ages.at(row).dancers;
    choice.firstRow = first;
    choice.lastRow = last;
    choice.band = Age_Band{low, high == Unset ? low : high};
    choice.text = high == Unset ? QStringLiteral("%1 yrs (%2 dancers)").arg(low).arg(choice.dancers)
                                : QStringLiteral("%1 - %2 yrs (%3 dancers)").arg(low).arg(high).arg(choice.dancers);
    return choice;
}

QString Code_Stem(const QString &name)
{
    QString stem = name;
    stem.remove(QLatin1Char(' '));
    return stem.left(4);
}

QString Free_Code(Connection &conn, short comp, const QString &stem)
{
    QString candidate = stem;
    do {
        candidate = Next_Code(candidate);
    } while (conn.scalar("SELECT count(*) AS no_grps FROM age_groups WHERE competition_id = " + Id(comp)
                         + " AND competition_group_id = '" + Sql_Quote(candidate) + "'")
                 .toInt()
             > 0);
    return candidate;
}

void Split_By_Age(Connection &conn, short comp, const QString &code, const QString &name,
                 const QList<Age_Band> &bands)
{
    Transaction work(conn);
    const QString stem = Code_Stem(name);
    Remove_Earlier_Split(conn, comp, code);
    const QString category = conn
                                 .scalar("SELECT category FROM age_groups WHERE competition_id = " + Id(comp)
                                         + " AND competition_group_id = '" + Sql_Quote(code) + "'")
                                 .toString();
    for (const Age_Band &band : bands)
        In_Savepoint(conn, [&] { Make_Band_Event(conn, comp, code, name, category, stem, band); });
}
