#include "export_file.h"

#include "core/codec.h"
#include "core/db.h"
#include "core/errors.h"
#include "core/pause.h"

#include <QFile>

namespace {

// The store's own text for a value: plain digits for numbers, empty for NULL.
QString Field_Text(const QVariant &v)
{
    if (v.isNull())
        return QString();
    if (v.typeId() == QMetaType::Double)
        return QString::number(v.toDouble(), 'g', 15);
    return v.toString();
}

class Export_Writer
{
public:
    Export_Writer(Connection &conn, short comp, const QString &path) : m_conn(conn), m_id(QString::number(comp)), m_file(path)
    {
        if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            throw AppError(QStringLiteral("Path/File access error: ") + path);
    }

    void line(const QString &tag, const QStringList &fields)
    {
        const QByteArray bytes = To_1252(tag + QLatin1Char('\t') + fields.join(QLatin1Char('\t')) + QStringLiteral("\r\n"));
        if (m_file.write(bytes) != bytes.size())
            throw AppError(QStringLiteral("Disk full or file error: ") + m_file.errorString());
    }

    // One line per row, the columns in the statement's order. Gives the rows written.
    int section(const QString &tag, const QString &sql, bool withId = true)
    {
        RowSet rs = m_conn.query(withId ? sql + m_id : sql);
        int n = 0;
        for (; !rs.eof(); rs.next(), ++n)
            line(tag, row(rs));
        return n;
    }

    static QStringList row(const RowSet &rs)
    {
        QStringList out;
        for (int i = 0; i < rs.fieldCount(); ++i)
            out << Field_Text(rs.value(i));
        return out;
    }

    void competition(File_Contents &contents)
    {
        RowSet rs = m_conn.query(QStringLiteral(
            "SELECT competition_id, competition_name, competition_date, competition_organiser, organiser_role, "
            "competition_town, competition_venue, address, registration_id, registration_key, registration_email "
            "FROM competitions where competition_id = ") + m_id);
        QStringList last(11);
        for (; !rs.eof(); rs.next())
            last = row(rs);
        contents.name = last.at(1);
        contents.date = last.at(2);
        // Venue stands before town in the record.
        last.swapItemsAt(5, 6);
        line(QStringLiteral("1"), last);
    }

    void reports()
    {
        RowSet rs = m_conn.query(QStringLiteral("SELECT id, name FROM custom_reports where competition_id = ") + m_id);
        for (; !rs.eof(); rs.next()) {
            const QString id = QString::number(To_Int16(rs.value(0)));
            line(QStringLiteral("12"), {id, Field_Text(rs.value(1))});
            section(QStringLiteral("13"), QStringLiteral("SELECT group_id FROM custom_reports_groups where id = ") + id, false);
            section(QStringLiteral("14"), QStringLiteral("SELECT fvalue FROM custom_reports_fields where id = ") + id, false);
            section(QStringLiteral("15"),
                    QStringLiteral("SELECT d.dance FROM dances d, custom_reports_dances c where d.dance_id = c.dance_id "
                                   "AND c.id = ") + id,
                    false);
        }
    }

    void close()
    {
        if (!m_file.flush())
            throw AppError(QStringLiteral("Disk full or file error: ") + m_file.errorString());
        m_file.close();
    }

private:
    Connection &m_conn;
    QString m_id;
    QFile m_file;
};

} // namespace

QString Clean_Export_Name(const QString &typed)
{
    QString name = typed;
    for (const QChar c : QStringLiteral("/\\:*?<>|&"))
        name.remove(c);
    return name;
}

File_Contents Write_Export_File(Connection &conn, short competitionId, const QString &path, const Export_Step &step)
{
    File_Contents contents;
    Transaction reads(conn);
    Export_Writer w(conn, competitionId, path);
    int value = 1;
    const auto next = [&] {
        Pause_Ms(100);
        if (step)
            step(++value);
    };
    w.competition(contents);
    next();
    w.section("2", "SELECT category_id, category FROM categories WHERE competition_id = ");
    next();
    w.section("4", "SELECT category_id, dance_id, orderby FROM category_dances WHERE competition_id = ");
    next();
    contents.events = w.section("5", "SELECT group_id, competition_group_id, age_group, category, no_prizes, split_overalls, split_ages, "
                   "parent_group_id, championship_title, championship_type, no_overall_prizes, dancer_order, orderby, "
                   "inc_t_fling FROM age_groups where competition_id = ");
    next();
    contents.competitors = w.section("7", "SELECT competitor_id, forename, surname, town, age, fee, date_received, group_id1, group_id2, "
                   "group_id3, group_id4, group_id5, group_id6, group_id7, group_id8, address1, address2, teacher, "
                   "notes, custom1, custom2, custom3, custom4, postcode FROM competitors where competition_id = ");
    next();
    w.section("8", "SELECT group_id, dance_id, result_no, judge_id FROM judges_results_judges where competition_id = ");
    next();
    contents.marks = w.section("9", "SELECT group_id, dance_id, competitor_id, points_awarded1, points_awarded2, points_awarded3 "
                   "FROM judges_results where competition_id = ");
    next();
    contents.marks += w.section("10", "SELECT group_id, dance_id, competitor_id, points_awarded1 FROM comp_judges_results "
                    "where competition_id = ");
    next();
    w.section("11", "SELECT group_id, dance_id, no_prizes FROM dance_no_prizes where competition_id = ");
    next();
    w.section("6", "SELECT judge_id, surname, forename FROM judges where competition_id = ");
    next();
    w.section("3", "SELECT dance_id, dance FROM dances", false);
    next();
    w.reports();
    w.close();
    return contents;
}
