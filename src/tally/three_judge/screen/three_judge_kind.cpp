#include "three_judge_kind.h"

const std::array<QString, 4> &Default_Dance_Names()
{
    static const std::array<QString, 4> names{QStringLiteral("Fling"), QStringLiteral("Swords"),
                                              QStringLiteral("Seann Truibhas"), QStringLiteral("Reel")};
    return names;
}

const Three_Judge_Kind &Premiership_Kind()
{
    static const Three_Judge_Kind kind{
        QStringLiteral("FrmTallyPrem"),
        QStringLiteral("PS"),
        QStringLiteral(" - Tallier Premiership"),
        QStringLiteral("Tallier - Premiership"),
        {QStringLiteral("Cmd1"), QStringLiteral("Cmd2"), QStringLiteral("Cmd3"), QStringLiteral("Cmd4")},
        {QStringLiteral("Dance1"), QStringLiteral("Dance2"), QStringLiteral("Dance3"), QStringLiteral("Dance4")},
        No_Dance_Yet,
        true,
        false,
    };
    return kind;
}

const Three_Judge_Kind &Championship_Kind()
{
    static const Three_Judge_Kind kind{
        QStringLiteral("FrmTallyChamp"),
        QStringLiteral("C"),
        QStringLiteral(" - Tallier Championship"),
        QStringLiteral("Tallier - Championship"),
        {QStringLiteral("Cmd_Fling"), QStringLiteral("Cmd_Swords"), QStringLiteral("Cmd_ST"), QStringLiteral("Cmd_Reel")},
        Default_Dance_Names(),
        1,
        false,
        true,
    };
    return kind;
}
