#pragma once
#include <QString>

class Connection;

// What the overall results of a Competition event follow, read when the event
// is taken up.
struct Overall_Settings
{
    short No_Overall_Prizes = 6;
    QString Split_Overalls;         // "Y": Highland and National totals as well
    QString Inc_T_Fling;            // "N": Trophy and Special Fling count for nothing
    QString Dance_Filter;           // SQL appended to every overall sum
};

// From the event's age_groups row (Current_Competition_Id, Current_Group_Id);
// an event that is not there is a fault.
Overall_Settings Read_Overall_Settings(Connection &conn);

// Empty unless incTFling is "N"; then " AND dance_id <> n" for every dance
// named Trophy Fling or Special Fling, in any case, and by these names only.
QString Build_Dance_Filter(Connection &conn, const QString &incTFling);
