#include "dance_settings.h"
#include "core/db.h"
#include "core/routines.h"

namespace {

QString Dance_Where(short comp, const QString &code, short dance)
{
    return "competition_id = " + QString::number(comp) + " AND group_id = '" + Sql_Quote(code)
           + "' AND dance_id = " + QString::number(dance);
}

} // namespace

QString Dance_Judge_Name(Connection &conn, short comp, const QString &code, short dance)
{
    RowSet rs = conn.query("SELECT j.forename, j.surname, j.judge_id FROM judges j, judges_results_judges r WHERE "
                           "j.competition_id = r.competition_id AND j.judge_id = r.judge_id AND r.group_id = '"
                           + Sql_Quote(code) + "' AND r.dance_id = " + QString::number(dance)
                           + " AND r.competition_id = " + QString::number(comp));
    QString name;
    for (; !rs.eof(); rs.next())
        name = rs.text("forename") + ' ' + rs.text("surname");
    return name;
}

QString Judge_Name(Connection &conn, int judge)
{
    RowSet rs = conn.query("SELECT ifnull(forename,'') || ' ' || ifnull(surname,'') AS name FROM judges WHERE judge_id = "
                           + QString::number(judge));
    return rs.eof() ? QString() : rs.text("name");
}

void Set_Dance_Judge(Connection &conn, short comp, const QString &code, short dance, short resultNo, int judge)
{
    Transaction t(conn);
    conn.execute("DELETE FROM judges_results_judges WHERE " + Dance_Where(comp, code, dance));
    conn.execute("INSERT INTO judges_results_judges(competition_id, group_id, dance_id, result_no, judge_id) VALUES("
                 + QString::number(comp) + ",'" + Sql_Quote(code) + "'," + QString::number(dance) + ","
                 + QString::number(resultNo) + "," + QString::number(judge) + ")");
}

bool Has_No_Dancers_Flag(Connection &conn, short comp, const QString &code, short dance)
{
    RowSet rs = conn.query("Select dance_id FROM dance_no_dancers where competition_id = " + QString::number(comp)
                           + " AND group_id = '" + Sql_Quote(code) + "' AND dance_id =" + QString::number(dance));
    return !rs.eof();
}

void Set_No_Dancers(Connection &conn, short comp, const QString &code, short dance, int value)
{
    Transaction t(conn);
    conn.execute("DELETE FROM dance_no_dancers WHERE " + Dance_Where(comp, code, dance));
    if (value != 1)
        conn.execute("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES(" + QString::number(comp)
                     + ",'" + Sql_Quote(code) + "'," + QString::number(dance) + ")");
}

QString Dance_Name(Connection &conn, short dance)
{
    RowSet rs = conn.query("Select dance FROM dances WHERE dance_id = " + QString::number(dance));
    return rs.eof() ? QString() : rs.text("dance");
}
