#include "category_logic.h"

#include "core/db.h"
#include "core/routines.h"

namespace {

QList<Dance_Item> Read_Dances(Connection &conn, const QString &sql)
{
    QList<Dance_Item> out;
    RowSet rs = conn.query(sql);
    for (; !rs.eof(); rs.next())
        out << Dance_Item{rs.value(QStringLiteral("dance_id")).toInt(), rs.text(QStringLiteral("dance"))};
    return out;
}

void Set_Dance_Order(Connection &conn, short competitionId, const QString &code, int danceId, int orderby)
{
    conn.execute(QStringLiteral("UPDATE category_dances SET orderby = ") + QString::number(orderby)
                 + QStringLiteral(" WHERE category_id = '") + Sql_Quote(code) + QStringLiteral("' AND dance_id = ")
                 + QString::number(danceId) + QStringLiteral(" AND competition_id = ")
                 + QString::number(competitionId));
}

// Swaps positions a and b (b = a - 1 or a + 1): the dance at a goes to b.
int Swap(Connection &conn, short competitionId, const QString &code, QList<Dance_Item> &list, int a, int b)
{
    Transaction t(conn);
    const Dance_Item moved = list.at(a);
    const Dance_Item other = list.at(b);
    list[b] = moved;
    Set_Dance_Order(conn, competitionId, code, moved.id, b);
    list[a] = other;
    Set_Dance_Order(conn, competitionId, code, other.id, a);
    return b;
}

} // namespace

QList<Category_Item> Read_Categories(Connection &conn, short competitionId)
{
    const QString id = QString::number(competitionId);
    QList<Category_Item> out;
    out.reserve(conn.scalar(QStringLiteral("SELECT count(*) as no_gps FROM categories WHERE competition_id = ") + id).toInt());
    RowSet rs = conn.query(QStringLiteral("SELECT category_id, category FROM categories WHERE competition_id = ") + id
                           + QStringLiteral(" ORDER BY 2"));
    for (; !rs.eof(); rs.next())
        out << Category_Item{rs.text(QStringLiteral("category_id")), rs.text(QStringLiteral("category"))};
    return out;
}

QList<Dance_Item> Read_Available_Dances(Connection &conn, short competitionId, const QString &code)
{
    return Read_Dances(conn, QStringLiteral("SELECT dances.dance_id, dances.dance FROM dances LEFT JOIN category_dances ON "
                                            "(dances.dance_id = category_dances.dance_id AND category_dances.category_id = '")
                                 + Sql_Quote(code) + QStringLiteral("' AND category_dances.competition_id = ")
                                 + QString::number(competitionId)
                                 + QStringLiteral(") WHERE category_dances.dance_id IS NULL ORDER BY 1 DESC"));
}

QList<Dance_Item> Read_Selected_Dances(Connection &conn, short competitionId, const QString &code)
{
    return Read_Dances(conn, QStringLiteral("SELECT d.dance_id, d.dance FROM dances d, category_dances cd WHERE "
                                            "d.dance_id = cd.dance_id AND cd.category_id = '")
                                 + Sql_Quote(code) + QStringLiteral("' AND competition_id = ") + QString::number(competitionId)
                                 + QStringLiteral(" ORDER BY cd.orderby"));
}

bool Is_Fixed_Category(const QString &code)
{
    return code == QLatin1String("C") || code == QLatin1String("H");
}

void Add_Category_Dance(Connection &conn, short competitionId, const QString &code, int danceId, int position)
{
    conn.execute(QStringLiteral("INSERT INTO category_dances (category_id, dance_id, competition_id, orderby) VALUES ('")
                 + Sql_Quote(code) + QStringLiteral("',") + QString::number(danceId) + QLatin1Char(',')
                 + QString::number(competitionId) + QLatin1Char(',') + QString::number(position) + QLatin1Char(')'));
}

void Remove_Category_Dance(Connection &conn, short competitionId, const QString &code, int danceId)
{
    conn.execute(QStringLiteral("DELETE FROM category_dances WHERE category_id = '") + Sql_Quote(code)
                 + QStringLiteral("' AND dance_id = ") + QString::number(danceId)
                 + QStringLiteral(" AND competition_id = ") + QString::number(competitionId));
}

int Move_Dance_Up(Connection &conn, short competitionId, const QString &code, QList<Dance_Item> &list, int i)
{
    if (i <= 0 || i >= list.size())
        return i;
    return Swap(conn, competitionId, code, list, i, i - 1);
}

int Move_Dance_Down(Connection &conn, short competitionId, const QString &code, QList<Dance_Item> &list, int i)
{
    if (i < 0 || i + 1 >= list.size())
        return i;
    return Swap(conn, competitionId, code, list, i, i + 1);
}

bool Category_Code_Used(const QString &code, const QStringList &codes, int mode, int selected)
{
    if (code.isEmpty())
        return true;
    for (int k = 0; k < codes.size(); ++k) {
        if (mode == 2 && k == selected)
            continue;
        if (codes.at(k) == code)
            return true;
    }
    return false;
}

void Insert_Category(Connection &conn, short competitionId, const QString &code, const QString &name)
{
    conn.execute(QStringLiteral("INSERT INTO categories(category_id, category, competition_id) VALUES ('") + Sql_Quote(code)
                 + QStringLiteral("','") + Sql_Quote(name) + QStringLiteral("',") + QString::number(competitionId)
                 + QLatin1Char(')'));
}

void Update_Category(Connection &conn, short competitionId, const QString &code, const QString &name,
                     const QString &oldCode)
{
    conn.execute(QStringLiteral("UPDATE categories SET category_id = '") + Sql_Quote(code) + QStringLiteral("', category = '")
                 + Sql_Quote(name) + QStringLiteral("' WHERE category_id = '") + Sql_Quote(oldCode)
                 + QStringLiteral("' AND competition_id = ") + QString::number(competitionId));
}

void Delete_Category(Connection &conn, short competitionId, const QString &code)
{
    Transaction t(conn);
    const QString tail = QStringLiteral(" WHERE category_id = '") + Sql_Quote(code) + QStringLiteral("' AND competition_id = ")
                         + QString::number(competitionId);
    conn.execute(QStringLiteral("DELETE FROM categories") + tail);
    conn.execute(QStringLiteral("DELETE FROM category_dances") + tail);
}

bool Dance_Can_Be_Deleted(const QString &idText)
{
    bool ok = false;
    const double id = idText.trimmed().toDouble(&ok);
    if (!ok)
        return true;  // reads as 0, a row never saved
    return id > 17 || id == 0;
}

void Insert_Dance(Connection &conn, const QString &name)
{
    conn.execute(QStringLiteral("INSERT INTO dances(dance) VALUES ('") + Sql_Quote(name) + QStringLiteral("')"));
}

void Delete_Dance_Dependents(Connection &conn, const QString &idText)
{
    if (idText.isEmpty())
        return;
    Transaction t(conn);
    for (const char *table : {"dance_results", "judges_results", "judges_results_judges", "overall_dance_results",
                              "category_dances"})
        conn.execute(QStringLiteral("DELETE FROM ") + QLatin1String(table) + QStringLiteral(" WHERE dance_id = ")
                     + idText);
}
