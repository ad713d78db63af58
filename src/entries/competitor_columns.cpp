#include "competitor_columns.h"

#include <QRegularExpression>

const QStringList &Competitor_Fields()
{
    static const QStringList fields = {
        "competition_id", "competitor_id", "forename", "surname", "age", "address1", "address2", "town",
        "postcode", "fee", "date_received", "teacher", "notes", "custom1", "custom2", "custom3", "custom4",
        "group_id1", "group_id2", "group_id3", "group_id4", "group_id5", "group_id6", "group_id7", "group_id8"};
    return fields;
}

const QStringList &Competitor_Captions()
{
    static const QStringList captions = {
        "Competition_id", "Num", "Forename", "Surname", "Age", "Address1", "Address2", "Town", "ZIP", "Fee",
        "Date Rcd", "Teacher", "Notes", "Field1", "Field2", "Field3", "Field4",
        "GRP1", "GRP2", "GRP3", "GRP4", "GRP5", "GRP6", "GRP7", "GRP8"};
    return captions;
}

const QList<int> &Competitor_Widths()
{
    static const QList<int> widths = {0,    500,  1250, 1250, 450, 1000, 1000, 1000, 700, 500, 950, 850, 650,
                                      650,  650,  650,  650,  650, 650,  650,  650,  650, 650, 650, 650};
    return widths;
}

QString Competitor_Statement(short competitionId)
{
    return QStringLiteral("Select competition_id, competitor_id, forename, surname, age, address1, address2, town, "
                          "postcode, fee, date_received, teacher, notes, custom1, custom2, custom3, custom4, "
                          "group_id1, group_id2, group_id3, group_id4, group_id5, group_id6, group_id7, group_id8  "
                          "from competitors where competition_id = ")
           + QString::number(competitionId);
}

QString Competitors_Alias(const QString &statement)
{
    static const QRegularExpression re(
        QStringLiteral("\\bcompetitors\\s+(?:as\\s+)?(?!where\\b|order\\b|inner\\b|left\\b|join\\b)([a-z_]\\w*)"),
        QRegularExpression::CaseInsensitiveOption);
    const auto m = re.match(statement);
    return m.hasMatch() ? m.captured(1) : QStringLiteral("competitors");
}

QString Row_Set_Statement(const QString &statement)
{
    static const QRegularExpression from(QStringLiteral("\\sfrom\\s"), QRegularExpression::CaseInsensitiveOption);
    const qsizetype at = statement.indexOf(from);
    if (at < 0)
        return statement;
    // The rowid goes last, so that an order by column number still counts
    // the statement's own columns.
    const QString inner = statement.left(at) + QStringLiteral(", ") + Competitors_Alias(statement)
                          + QStringLiteral(".rowid AS rowid") + statement.mid(at);
    return QStringLiteral("SELECT ") + Competitor_Fields().join(QStringLiteral(", ")) + QStringLiteral(" FROM (") + inner
           + QStringLiteral(") AS competitors");
}
