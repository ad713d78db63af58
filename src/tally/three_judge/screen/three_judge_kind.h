#pragma once
#include <QString>
#include <array>

// The Premiership and Championship mark screens are one design; this is all
// that differs between them.
struct Three_Judge_Kind
{
    QString formName;             // FrmTallyPrem, FrmTallyChamp
    QString category;             // events listed: 'PS' or 'C'
    QString mainTitleSuffix;      // added to the main window's title on opening
    QString caption;              // the screen's own caption
    std::array<QString, 4> buttonNames;
    std::array<QString, 4> designCaptions;
    short startDanceId;           // Current_Dance_Id at opening (-99: none yet)
    bool danceIdsFromCategory;    // Premiership: the category's four dances, checked on selection
    bool namesFromTable;          // Championship: captions from championship_dance_names
};

const Three_Judge_Kind &Premiership_Kind();
const Three_Judge_Kind &Championship_Kind();

// Default names of the four dances of a three-judge event.
const std::array<QString, 4> &Default_Dance_Names();

// Premiership marker for "no dance chosen yet".
inline constexpr short No_Dance_Yet = -99;
