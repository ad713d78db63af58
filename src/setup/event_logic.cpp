#include "event_logic.h"

#include "core/db.h"
#include "core/routines.h"

namespace {

bool oneOf(const QString &text, std::initializer_list<const char *> allowed)
{
    const QString u = text.toUpper();
    for (const char *a : allowed)
        if (u == QLatin1String(a))
            return true;
    return false;
}

} // namespace

Category_Lookup Read_Category_Lookup(Connection &conn, short competitionId)
{
    const QString id = QString::number(competitionId);
    Category_Lookup out;
    const int total = conn.scalar(QStringLiteral("Select count(*) AS tot FROM categories WHERE competition_id = ") + id).toInt();
    out.names.reserve(total);
    out.codes.reserve(total);
    RowSet rs = conn.query(QStringLiteral("Select category_id, category FROM categories WHERE competition_id = ") + id
                           + QStringLiteral(" ORDER BY 2 DESC"));
    for (; !rs.eof(); rs.next()) {
        out.names << rs.text(QStringLiteral("category"));
        out.codes << rs.text(QStringLiteral("category_id"));
    }
    return out;
}

bool Category_Exists(const QString &text, const QStringList &codes)
{
    const QString u = text.toUpper();
    if (u == QLatin1String("C") || u == QLatin1String("H"))
        return true;
    for (const QString &c : codes)
        if (c.toUpper() == u)
            return true;
    return false;
}

bool Is_Digits(const QString &text)
{
    if (text.isEmpty())
        return false;
    for (QChar ch : text)
        if (ch < QLatin1Char('0') || ch > QLatin1Char('9'))
            return false;
    return true;
}

Cell_Check Check_Event_Cell(int col, const QString &text, const QStringList &codes)
{
    if (text.isEmpty() && col < 5)
        return Refusal{QStringLiteral("All fields are required! If you wish to delete this record, enter a value first"),
                       QStringLiteral("validation Error"), vbExclamation};
    switch (col) {
    case 3:
        if (!Category_Exists(text, codes))
            return Validation_Refusal(
                QStringLiteral("You must select an existing category. 'H' and 'C' are valid or use 'F2' for list"));
        break;
    case 4:
        // 1 passes, though the words say otherwise.
        if (To_Whole_Number(text) < 1)
            return Validation_Refusal(QStringLiteral("Value must be greater than 1!"));
        break;
    case 5:
        if (!oneOf(text, {"Y", "N"}))
            return Validation_Refusal(QStringLiteral("Split Highland/ National Award must be set to Y or N"));
        break;
    case 6:
        if (!oneOf(text, {"Y", "N"}))
            return Validation_Refusal(QStringLiteral("Split Ages must be set to Y or N"));
        break;
    case 8:
        if (!oneOf(text, {"", "C", "O"}))
            return Validation_Refusal(QStringLiteral("Open/ Closed must be set to O or C. Only for championships!"));
        break;
    case 9: {
        const short n = To_Whole_Number(text);
        if (n < 1 || n > 6)
            return Validation_Refusal(QStringLiteral("Number Overall Prizes must be between 1 and 6"));
        break;
    }
    case 10:
        if (!oneOf(text, {"", "A", "D"}))
            return Validation_Refusal(QStringLiteral("Dancer Order must be set to A (Ascending) or D (Descending)!"));
        break;
    case 11:
        if (!text.isEmpty() && !Is_Digits(text))
            return Refusal{QStringLiteral("Group Order must be a numberic value"), QString(), vbOKOnly};
        break;
    case 12:
        if (!oneOf(text, {"Y", "N"}))
            return Validation_Refusal(QStringLiteral("Include Trophy Fling in Group Trophy must be Y or N"));
        break;
    default:
        break;
    }
    return std::nullopt;
}

Cell_Check Check_Event_Saved_Cell(int col, const QString &text, const QStringList &codes)
{
    if (col == 3 && !Category_Exists(text, codes))
        return Validation_Refusal(QStringLiteral("You must select an existing category. (Use 'F2' for list)"));
    if (col == 5 && !oneOf(text, {"Y", "N"}))
        return Validation_Refusal(QStringLiteral("Split Highland/ National Award must be set to Y or N"));
    if (col == 12 && !oneOf(text, {"Y", "N"}))
        return Validation_Refusal(QStringLiteral("Include T Fling in group trophy must be set to Y or N"));
    return std::nullopt;
}

QVariant Event_Field_Value(int col, const QString &text)
{
    if (col == 1 || col == 4 || col == 9)
        return text;
    if (col == 11 && text.isEmpty())
        return QVariant();
    return text.toUpper();
}

bool Has_Duplicate_Codes(const QStringList &codes)
{
    QStringList upper;
    for (const QString &c : codes)
        upper << c.toUpper();
    return Has_Duplicates(upper);
}

void Insert_Event(Connection &conn, short competitionId, const QStringList &cells)
{
    auto u = [&](int col) { return Sql_Quote(cells.value(col).toUpper()); };
    // Numbers go in bare only when they are numbers.
    auto n = [&](int col) { return Bare_Number(cells.value(col)); };
    const QString sql =
        QStringLiteral("INSERT INTO age_groups(competition_id, age_group, competition_group_id, Category, no_prizes, "
                       "split_overalls, split_ages, championship_title, championship_type, no_overall_prizes, "
                       "dancer_order, orderby, inc_t_fling) VALUES (")
        + QString::number(competitionId) + QStringLiteral(",'") + Sql_Quote(cells.value(1)) + QStringLiteral("','")
        + u(2) + QStringLiteral("','") + u(3) + QStringLiteral("',") + n(4) + QStringLiteral(",'") + u(5)
        + QStringLiteral("','") + u(6) + QStringLiteral("','") + u(7) + QStringLiteral("','") + u(8)
        + QStringLiteral("',") + n(9) + QStringLiteral(",'") + u(10) + QStringLiteral("',")
        + (cells.value(11).isEmpty() ? QStringLiteral("NULL") : n(11)) + QStringLiteral(",'") + u(12) + QStringLiteral("')");
    conn.execute(sql);
}

void Default_Split_Ages(Connection &conn, short competitionId)
{
    conn.execute(QStringLiteral("UPDATE age_groups SET split_ages = 'N' WHERE competition_id = ")
                 + QString::number(competitionId) + QStringLiteral(" AND split_ages IS NULL"));
}

void Delete_Event_Dependents(Connection &conn, short competitionId, const QString &code)
{
    Transaction t(conn);
    const QString id = QString::number(competitionId);
    for (const char *table : {"dance_results", "highland_results", "judges_results", "comp_judges_results",
                              "judges_results_judges", "overall_dance_results", "overall_results", "national_results",
                              "tie_break", "dance_no_prizes", "dance_no_dancers", "competitor_groups"})
        conn.execute(QStringLiteral("DELETE FROM ") + QLatin1String(table) + QStringLiteral(" WHERE competition_id = ")
                     + id + QStringLiteral(" And group_id = '") + Sql_Quote(code) + QStringLiteral("'"));
    conn.execute(QStringLiteral("DELETE FROM custom_reports_groups WHERE rowid IN (SELECT g.rowid FROM "
                                "custom_reports_groups AS g INNER JOIN custom_reports c ON g.id = c.id "
                                "WHERE c.competition_id = ")
                 + id + QStringLiteral(" And g.group_id = '") + Sql_Quote(code) + QStringLiteral("')"));
}
