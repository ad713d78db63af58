#include "check_run.h"

#include "check_report.h"

#include "core/dialogs.h"
#include "core/globals.h"
#include "reports/report.h"
#include "reports/report_output.h"

Compare_Outcome Run_Check(Connection &conn, const QString &eventName, const QString &mode, QWidget *parent)
{
    const bool champ = mode == QLatin1String("Champ");
    const Compare_Outcome outcome = Check_Results(conn, eventName, mode);
    switch (outcome.kind) {
    case Compare_Outcome::No_File:
        Msg_Box(QStringLiteral("The directory selected has no compare files for this group!"));
        break;
    case Compare_Outcome::Failure:
        Msg_Box(QStringLiteral("There was an error during the result check!"));
        break;
    case Compare_Outcome::Match:
        if (champ) {
            Check_Text_1.clear();
            Check_Text_2.clear();
        }
        Msg_Box(QStringLiteral("!!! Results Match !!!"), vbInformation, QStringLiteral("Confirmation"));
        break;
    case Compare_Outcome::Differ: {
        if (!champ) {
            auto report = Report::Load(QStringLiteral("DataReport7"));
            Fill_Check_Report(*report, outcome);
            Show_Report(report, parent);
            break;
        }
        Check_Text_1 = Check_Text(QStringLiteral("This Computer"), outcome, false);
        Check_Text_2 = Check_Text(QStringLiteral("Remote Computer"), outcome, true);
        Msg_Box(QStringLiteral("!!! NO MATCH !!!"), vbCritical, QStringLiteral("ERROR"));
        break;
    }
    }
    return outcome;
}
