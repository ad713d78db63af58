#include "import_file.h"
#include "sql_values.h"

#include "core/codec.h"
#include "core/db.h"
#include "core/errors.h"
#include "core/globals.h"
#include "core/routines.h"

#include <QDir>
#include <QSet>

namespace {

const QString Subscript = QStringLiteral("Subscript out of range");

QString Quoted(const QString &v)
{
    return QLatin1Char('\'') + v + QLatin1Char('\'');
}

class Line_Reader
{
public:
    Line_Reader(Connection &conn, const Import_Hooks &hooks) : m_conn(conn), m_hooks(hooks) {}

    // False when the operator declined to replace a competition.
    bool read(const QString &line)
    {
        // Quotes doubled once for the whole line, so every value fits between quotes.
        m_f = line.isEmpty() ? QStringList() : Sql_Quote(line).split(QLatin1Char('\t'));
        const QString tag = f(0);
        if (tag == QLatin1String("1"))
            return competition();
        count(tag);
        if (tag == QLatin1String("2"))
            run("INSERT INTO categories(competition_id, category_id, category) VALUES(" + id() + ",'" + f(1) + "','"
                + f(2) + "')");
        else if (tag == QLatin1String("4"))
            categoryDance();
        else if (tag == QLatin1String("5"))
            event();
        else if (tag == QLatin1String("7"))
            competitor();
        else if (tag == QLatin1String("8"))
            run("INSERT INTO judges_results_judges(competition_id, group_id, dance_id, result_no, judge_id) VALUES ("
                + id() + ",'" + f(1) + "'," + bare(2) + "," + bare(3) + "," + bare(4) + ")");
        else if (tag == QLatin1String("9"))
            run("INSERT INTO judges_results(competition_id, group_id , dance_id, competitor_id, points_awarded1, "
                "points_awarded2, points_awarded3) VALUES (" + id() + ",'" + f(1) + "'," + bare(2) + "," + bare(3)
                + "," + Bare_Value(Default_If_Empty(f(4), "NULL")) + "," + Bare_Value(Default_If_Empty(f(5), "NULL"))
                + "," + Bare_Value(Default_If_Empty(f(6), "NULL")) + ")");
        else if (tag == QLatin1String("10"))
            // An empty mark arrives as 0 here, not NULL as in the three-judge marks.
            run("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, points_awarded1) "
                "VALUES (" + id() + ",'" + f(1) + "'," + bare(2) + "," + bare(3) + ","
                + Bare_Value(Default_If_Empty(f(4), "0")) + ")");
        else if (tag == QLatin1String("11"))
            run("INSERT INTO dance_no_prizes(competition_id, group_id, dance_id, no_prizes) VALUES (" + id() + ",'"
                + f(1) + "'," + bare(2) + "," + bare(3) + ")");
        else if (tag == QLatin1String("6"))
            judge();
        else if (tag == QLatin1String("3"))
            dance();
        else if (tag == QLatin1String("12"))
            newReport();
        else if (tag == QLatin1String("13"))
            run("INSERT INTO custom_reports_groups(id, group_id) VALUES (" + report() + ",'" + f(1) + "')");
        else if (tag == QLatin1String("14"))
            run("INSERT INTO custom_reports_fields(id, fvalue) VALUES (" + report() + ",'" + f(1) + "')");
        else if (tag == QLatin1String("15"))
            reportDance();
        return true;
    }

    Import_Result &result() { return m_result; }

private:
    void count(const QString &tag)
    {
        if (tag == QLatin1String("7"))
            ++m_result.contents.competitors;
        else if (tag == QLatin1String("5"))
            ++m_result.contents.events;
        else if (tag == QLatin1String("9") || tag == QLatin1String("10"))
            ++m_result.contents.marks;
    }

    QString f(int i) const
    {
        if (i >= m_f.size())
            throw AppError(Subscript);
        return m_f.at(i);
    }
    int last() const { return m_f.size() - 1; }
    QString bare(int i) const { return Bare_Value(f(i)); }
    static QString id() { return QString::number(Current_Competition_Id); }
    void run(const QString &sql) { m_conn.execute(sql); }

    QString findCompetition() const
    {
        return "SELECT competition_id from competitions WHERE competition_name = '" + f(2)
               + "' AND competition_date  = '" + f(3) + "'";
    }

    bool competition()
    {
        Current_Competition_Id = -99;
        m_result.contents.name = Un_Quote(f(2));
        m_result.contents.date = Un_Quote(f(3));
        m_movedJudges.clear();
        RowSet found = m_conn.query(findCompetition());
        const short written = found.eof() ? Written_Alike() : To_Int16(found.value(0));
        if (written != -99) {
            Current_Competition_Id = written;
            // The box shows the names as the file has them, quotes single.
            const QString text = QStringLiteral("A matching event has been found in the database: \n")
                                 + Un_Quote(f(2)) + QLatin1Char(' ') + Un_Quote(f(3))
                                 + QStringLiteral("\nContinuing may delete data relating to that event.");
            if (!m_hooks.confirm || !m_hooks.confirm(text))
                return false;
            Delete_Competition();
            return true;
        }
        const int n = last();
        if (n <= 7) {
            run("INSERT INTO competitions(competition_name, competition_date) VALUES ('" + f(2) + "','" + f(3) + "')");
        } else if (n == 8) {
            run("INSERT INTO competitions(competition_name, competition_date, competition_organiser, organiser_role, "
                "competition_venue, competition_town, address) VALUES ('" + f(2) + "','" + f(3) + "','" + f(4) + "','"
                + f(5) + "','" + f(6) + "','" + f(7) + "','" + Default_If_Empty(f(8), " ") + "')");
        } else if (n == 11) {
            run("INSERT INTO competitions(competition_name, competition_date, competition_organiser, organiser_role, "
                "competition_venue, competition_town, address, registration_id, registration_key, registration_email) "
                "VALUES ('" + f(2) + "','" + f(3) + "','" + f(4) + "','" + f(5) + "','" + f(6) + "','" + f(7) + "','"
                + f(8) + "'," + Bare_Value(Default_If_Empty(f(9), "NULL")) + ",'" + f(10) + "','" + f(11) + "')");
        }
        // With no insert (9, 10, 12 or more fields) nothing is found: the rest goes in under -99.
        RowSet made = m_conn.query(findCompetition());
        for (; !made.eof(); made.next())
            Current_Competition_Id = To_Int16(made.value(0));
        return true;
    }

    // A name with letters outside the file's code page comes back with "?" in their place:
    // it is still the competition it was written from.
    short Written_Alike() const
    {
        RowSet rs = m_conn.query("SELECT competition_id, competition_name FROM competitions WHERE competition_date = '"
                                 + f(3) + "'");
        for (; !rs.eof(); rs.next())
            if (From_1252(To_1252(rs.text(QStringLiteral("competition_name")))) == m_result.contents.name)
                return To_Int16(rs.value(0));
        return -99;
    }

    static QString Un_Quote(QString v) { return v.replace(QStringLiteral("''"), QStringLiteral("'")); }

    void Delete_Competition()
    {
        static const char *const tables[] = {"dance_results", "highland_results", "judges_results",
                                             "comp_judges_results", "judges_results_judges", "judges",
                                             "overall_dance_results", "tie_break", "competitors", "competitor_groups",
                                             "age_groups", "categories", "category_dances", "dance_no_prizes",
                                             "dance_no_dancers"};
        for (const char *t : tables)
            run(QStringLiteral("DELETE FROM ") + QLatin1String(t) + QStringLiteral(" WHERE competition_id = ") + id());
        RowSet rs = m_conn.query("SELECT id FROM custom_reports WHERE competition_id = " + id());
        if (rs.eof())
            return;
        // Only the first report's rows go; those of later reports stay behind.
        const QString report = rs.value(0).toString();
        run("DELETE FROM custom_reports_groups WHERE id = " + report);
        run("DELETE FROM custom_reports_dances WHERE id = " + report);
        run("DELETE FROM custom_reports_fields WHERE id = " + report);
        run("DELETE FROM custom_reports WHERE competition_id = " + id());
    }

    void categoryDance()
    {
        const QString order = last() >= 3 && !f(3).isEmpty() ? Bare_Value(f(3)) : QStringLiteral("NULL");
        run("INSERT INTO category_dances(category_id, dance_id, competition_id, orderby) VALUES('" + f(1) + "',"
            + bare(2) + "," + id() + "," + order + ")");
    }

    void event()
    {
        QString split, parent, title, type, overallPrizes = "6", dancerOrder = "A", orderBy = "NULL", incTFling = "Y";
        const int n = last();
        if (n == 6) {
            split = "N";
        } else {
            split = f(7);
            if (n >= 8)
                parent = f(8);
            if (n < 7 || n >= 9) {
                title = f(9);
                type = f(10);
            }
            if (n >= 13) {
                overallPrizes = Default_If_Empty(f(11), "1");
                dancerOrder = f(12);
                orderBy = Default_If_Empty(f(13), "NULL");
                incTFling = Default_If_Empty(f(14), "Y");
            }
        }
        split = Default_If_Empty(split, "N");
        run("INSERT INTO age_groups(competition_group_id, age_group, category, competition_id, no_prizes, "
            "split_overalls, split_ages, parent_group_id, championship_title, championship_type, no_overall_prizes, "
            "dancer_order, orderby, inc_t_fling) VALUES('" + f(2) + "','" + f(3) + "','" + f(4) + "'," + id() + ","
            + bare(5) + ",'" + f(6) + "','" + split + "','" + parent + "','" + title + "','" + type + "',"
            + Bare_Value(overallPrizes) + ",'" + dancerOrder + "'," + Bare_Value(orderBy) + ",'" + incTFling + "')");
    }

    void competitor()
    {
        QStringList events;
        for (int i = 8; i <= 15; ++i)
            events << f(i);
        m_competitor = Int16_Field(f(1));
        for (const QString &e : events)
            if (!e.isEmpty())
                run("INSERT INTO competitor_groups(competition_id,  competitor_id, group_id) VALUES(" + id() + ","
                    + QString::number(m_competitor) + ",'" + e + "')");
        const int n = last();
        const bool address = n >= 16, teacher = n >= 18, custom = n == 23, postcode = n == 24;
        QStringList tail;
        tail << (address ? f(16) : QString()) << (address ? f(17) : QString());
        tail << (teacher ? f(18) : QString()) << (teacher ? f(19) : QString());
        for (int i = 20; i <= 23; ++i)
            tail << (custom ? f(i) : QString());
        tail << (postcode ? f(24) : QString());
        QStringList quoted;
        for (const QString &v : events + tail)
            quoted << Quoted(v);
        run("INSERT INTO competitors (competition_id, competitor_id, forename, surname, town, age, fee, "
            "date_received, group_id1, group_id2, group_id3, group_id4, group_id5, group_id6, group_id7, group_id8, "
            "address1, address2, teacher, notes, custom1, custom2, custom3, custom4, postcode) VALUES(" + id() + ","
            + bare(1) + ",'" + f(2) + "','" + f(3) + "','" + f(4) + "'," + Bare_Value(Default_If_Empty(f(5), "NULL"))
            + "," + Bare_Value(Default_If_Empty(f(6), "NULL")) + ",'" + f(7) + "'," + quoted.join(QLatin1Char(','))
            + ")");
    }

    // The id of the last row of a lookup, or -99 when there is none.
    short lastId(const QString &sql)
    {
        short found = -99;
        RowSet rs = m_conn.query(sql);
        for (; !rs.eof(); rs.next())
            found = To_Int16(rs.value(0));
        return found;
    }

    // Does the id found differ from the file's? Compared as numbers.
    bool differs(short found, const QString &fileId)
    {
        bool ok = false;
        const double v = fileId.trimmed().toDouble(&ok);
        if (!ok)
            throw AppError(QStringLiteral("Type mismatch"));
        return v != found;
    }

    void judge()
    {
        const QString find = "SELECT judge_id from judges WHERE competition_id = " + id() + " AND surname = '" + f(2)
                             + "' AND forename = '" + f(3) + "'";
        short found = lastId(find);
        if (found == -99) {
            run("INSERT INTO judges(competition_id, surname, forename) VALUES(" + id() + ",'" + f(2) + "','" + f(3)
                + "')");
            found = lastId(find);
        }
        if (!differs(found, f(1)))
            return;
        // A row already given its judge stays: a later judge's old id may be this one's new id.
        QStringList rows;
        RowSet rs = m_conn.query("SELECT rowid FROM judges_results_judges WHERE competition_id = " + id()
                                 + " AND judge_id = " + bare(1));
        for (; !rs.eof(); rs.next())
            if (!m_movedJudges.contains(rs.value(0).toLongLong()))
                rows << rs.value(0).toString();
        if (rows.isEmpty())
            return;
        run("UPDATE judges_results_judges SET judge_id = " + QString::number(found) + " WHERE rowid IN ("
            + rows.join(QLatin1Char(',')) + ")");
        for (const QString &r : rows)
            m_movedJudges.insert(r.toLongLong());
    }

    void dance()
    {
        const QString find = "SELECT dance_id from dances WHERE dance = '" + f(2) + "'";
        short found = lastId(find);
        if (found == -99) {
            run("INSERT INTO dances(dance) VALUES('" + f(2) + "')");
            found = lastId(find);
        }
        if (!differs(found, f(1)))
            return;
        // One after the other, unstaged: a row moved by one remap may be moved again by a later one.
        for (const char *t : {"category_dances", "comp_judges_results", "judges_results_judges"})
            run(QStringLiteral("UPDATE ") + QLatin1String(t) + " SET dance_id = " + QString::number(found)
                + " WHERE competition_id = " + id() + " AND dance_id = " + bare(1));
    }

    // Records 13 to 15 belong to the last record 12 above them.
    QString report() const
    {
        if (m_report.isEmpty())
            throw AppError(QStringLiteral("a custom report line stands before any report"));
        return m_report;
    }

    void newReport()
    {
        run("INSERT INTO custom_reports(competition_id, name) VALUES (" + id() + ",'" + f(2) + "')");
        RowSet rs = m_conn.query("SELECT id FROM custom_reports WHERE competition_id = " + id() + " AND name = '" + f(2)
                                 + "'");
        m_report = rs.value(0).toString();
    }

    void reportDance()
    {
        RowSet rs = m_conn.query("SELECT dance_id from dances WHERE dance = '" + f(1) + "'");
        run("INSERT INTO custom_reports_dances(id, dance_id) VALUES (" + report() + "," + rs.value(0).toString() + ")");
    }

    Connection &m_conn;
    const Import_Hooks &m_hooks;
    QStringList m_f;
    QString m_report;
    short m_competitor = 0;
    QSet<qint64> m_movedJudges;   // judges_results_judges rows already given their judge
    Import_Result m_result;
};

} // namespace

QStringList Split_Export_Lines(const QString &text)
{
    QStringList lines = text.split(QStringLiteral("\r\n"));
    if (lines.size() == 1)
        lines = text.split(QLatin1Char('\n'));
    return lines;
}

Import_Result Import_Text(Connection &conn, const QString &text, const Import_Hooks &hooks)
{
    const QStringList lines = Split_Export_Lines(text);
    const int highest = lines.size() - 1;
    if (hooks.start)
        hooks.start(highest);
    Transaction work(conn);
    Line_Reader reader(conn, hooks);
    Import_Result &result = reader.result();
    short counter = 0;
    // The last element is never read: the empty text behind the last line end,
    // or a last line that has none.
    for (int i = 0; i < highest; ++i) {
        try {
            if (!reader.read(lines.at(i))) {
                result.status = Import_Result::Declined;
                return result;
            }
            if (counter == 32767)
                throw AppError(QStringLiteral("Overflow"));
            ++counter;
        } catch (const AppError &e) {
            result.status = Import_Result::Fault;
            result.line = i + 1;
            result.message = e.message();
            return result;
        }
        if (hooks.step)
            hooks.step(counter);
    }
    return result;
}

Import_Result Import_File(Connection &conn, const QString &path, const Import_Hooks &hooks)
{
    bool ok = false;
    const QString text = Read_Text_File(path, &ok);
    if (!ok) {
        Import_Result r;
        r.status = Import_Result::Fault;
        r.message = QStringLiteral("File not found: ") + path;
        return r;
    }
    return Import_Text(conn, text, hooks);
}

bool CheckFileExtension(const QString &name)
{
    for (int i = name.size() - 1; i >= 0; --i) {
        const QChar c = name.at(i);
        if (c == QLatin1Char('.'))
            return name.mid(i + 1) == QLatin1String("dmp");
        if (c == QLatin1Char(':') || c == QLatin1Char('\\') || c == QLatin1Char('/'))
            return false;
    }
    return false;
}

QStringList List_Export_Files(const QString &folder)
{
    QStringList out;
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    for (QString name : names)
        if (CheckFileExtension(name))
            out << name.remove(QStringLiteral(".dmp"));
    return out;
}
