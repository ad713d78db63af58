#include "competitor_columns.h"


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

