#include "check_report.h"

#include "compare_run.h"

#include "core/globals.h"
#include "reports/report.h"

namespace {

const QString CrLf = QStringLiteral("\r\n");
const QString Body = QStringLiteral("Section2");

void Set(Report &report, const QString &name, int block, const QString &value)
{
    report.Controls(Body, name + QString::number(block)).Caption = value + CrLf;
}

} // namespace

void Fill_Check_Report(Report &report, const Compare_Outcome &outcome)
{
    const QString header = QStringLiteral("Section4");
    report.Controls(header, QStringLiteral("cname")).Caption = Current_Competition_Name;
    report.Controls(header, QStringLiteral("aname")).Caption.clear();
    report.Controls(header, QStringLiteral("compdate")).Caption.clear();
    report.Controls(QStringLiteral("Section3"), QStringLiteral("Footer")).Caption = Footer_Text();
    if (outcome.kind != Compare_Outcome::Differ || outcome.lineType == 0)
        return;
    // Blocks 1 and 2 hold a dance's result, 3 and 4 a judge's placing.
    const int first = outcome.lineType == 2 ? 3 : 1;
    for (int side = 0; side < 2; ++side) {
        const Compare_Side &s = side == 0 ? outcome.here : outcome.remote;
        Set(report, QStringLiteral("lbldance"), first + side, s.dance);
        Set(report, QStringLiteral("lblnumber"), first + side, s.number);
        Set(report, QStringLiteral("lblplace"), first + side, s.place);
        if (outcome.lineType == 2)
            Set(report, QStringLiteral("lbljudge"), first + side, s.judge);
    }
}
