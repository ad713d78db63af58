#pragma once
// The five sheets of a Premiership or Championship event, filled from the
// result tables without a window: the overall result (DataReport4), the judges'
// sheet (DataReport2), the callbacks (DataReport6), the top ten (DataReport12)
// and the SOBHD return (DataReport1). The screen shows or prints what they give.
#include <QString>
#include <array>
#include <memory>

class Connection;
class Report;

namespace ThreeJudge {

struct Sheet_Event
{
    short competition = 0;
    QString group;                          // the event code
    QString eventText;                      // as the event list shows it
    bool premiership = true;                // false: Championship, dances 1 to 4 by id
    std::array<QString, 4> danceCaptions;   // the four dance buttons
    std::array<short, 13> danceIds{};       // Premiership: the category's dances, 1 to 4 in use
    short noOverallPrizes = 6;

    // The id of dance n (1 to 4).
    short Dance_Id(int n) const { return premiership ? danceIds[n] : static_cast<short>(n); }
};

std::shared_ptr<Report> Fill_Overall_Report(Connection &conn, const Sheet_Event &e);
std::shared_ptr<Report> Fill_Judges_Report(Connection &conn, const Sheet_Event &e);
std::shared_ptr<Report> Fill_Callback_Report(Connection &conn, const Sheet_Event &e);
std::shared_ptr<Report> Fill_Top_10_Report(Connection &conn, const Sheet_Event &e);
std::shared_ptr<Report> Fill_Sobhd_Return(Connection &conn, const Sheet_Event &e);

} // namespace ThreeJudge
