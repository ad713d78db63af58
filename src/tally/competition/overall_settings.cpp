#include "overall_settings.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"

Overall_Settings Read_Overall_Settings(Connection &conn)
{
    RowSet rs = conn.query(QStringLiteral("Select split_overalls, no_overall_prizes, inc_t_fling from age_groups "
                                          "where competition_id = ")
                           + QString::number(Current_Competition_Id) + QStringLiteral(" AND competition_group_id = '")
                           + Sql_Quote(Current_Group_Id) + QStringLiteral("'"));
    Overall_Settings s;
    s.No_Overall_Prizes = To_Int16(rs.value(QStringLiteral("no_overall_prizes")));
    s.Split_Overalls = rs.text(QStringLiteral("split_overalls"));
    s.Inc_T_Fling = rs.text(QStringLiteral("inc_t_fling"));
    s.Dance_Filter = Build_Dance_Filter(conn, s.Inc_T_Fling);
    return s;
}

QString Build_Dance_Filter(Connection &conn, const QString &incTFling)
{
    QString filter;
    if (incTFling != QLatin1String("N"))
        return filter;
    RowSet rs = conn.query(QStringLiteral("Select dance_id FROM dances WHERE ucase(dance) = 'TROPHY FLING' "
                                          "OR ucase(dance) = 'SPECIAL FLING'"));
    for (; !rs.eof(); rs.next())
        filter += QStringLiteral(" AND dance_id <> ") + QString::number(rs.toShort(QStringLiteral("dance_id")));
    return filter;
}
