// The search panel of the competitors screen: its statement replaces the
// grid's until the screen closes.
#include "frmCompetitors.h"
#include "competitor_search.h"
#include "core/routines.h"
#include "event_lists.h"

#include "core/dialogs.h"
#include "core/doing.h"
#include "core/errors.h"
#include "core/globals.h"
#include "ui/grid/flex_grid.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

QLineEdit *Make_Box(QWidget *parent, const char *name)
{
    auto *box = new QLineEdit(parent);
    box->setObjectName(QLatin1String(name));
    return box;
}

} // namespace

void frmCompetitors::Build_Search_Frame()
{
    FrameSearch = new QGroupBox(QStringLiteral("Search"), this);
    FrameSearch->setObjectName(QStringLiteral("FrameSearch"));
    FrameSearch->setAutoFillBackground(true);

    Combo1 = new QComboBox(FrameSearch);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    SearchNo = Make_Box(FrameSearch, "SearchNo");
    SearchForename = Make_Box(FrameSearch, "SearchForename");
    SearchSurname = Make_Box(FrameSearch, "SearchSurname");
    SearchTeacher = Make_Box(FrameSearch, "SearchTeacher");
    SearchAgeFrom = Make_Box(FrameSearch, "SearchAgeFrom");
    SearchAgeTo = Make_Box(FrameSearch, "SearchAgeTo");

    Search_Registered = new QComboBox(FrameSearch);
    Search_Registered->setObjectName(QStringLiteral("Search_Registered"));
    Search_Registered->addItem(QStringLiteral("All"), Reg_All);
    Search_Registered->addItem(QStringLiteral("Registered"), Reg_Registered);
    Search_Registered->addItem(QStringLiteral("Not Registered"), Reg_Not_Registered);
    Search_Registered->addItem(QStringLiteral("No Card!"), Reg_No_Card);

    SearchOrder = new QComboBox(FrameSearch);
    SearchOrder->setObjectName(QStringLiteral("SearchOrder"));
    SearchOrder->addItem(QStringLiteral("Competitor No Desc"), 2);
    SearchOrder->addItem(QStringLiteral("Competitor No Asc"), 3);
    SearchOrder->addItem(QStringLiteral("Group"), 11);
    SearchOrder->addItem(QStringLiteral("Age"), 5);
    SearchOrder->addItem(QStringLiteral("Surname!"), 4);

    chk_winners = new QCheckBox(QStringLiteral("Show Champ Winners Only"), FrameSearch);
    chk_winners->setObjectName(QStringLiteral("chk_winners"));
    chk_winners->setToolTip(QStringLiteral("Show top 6 in championship only"));
    auto *note = new QLabel(QStringLiteral("Can be used to find top 6 in championship to enable input of address data "
                                           "that appears on SOBHD championship report"),
                            FrameSearch);
    note->setWordWrap(true);

    CmdSearch = new QPushButton(QStringLiteral("Search"), FrameSearch);
    CmdSearch->setObjectName(QStringLiteral("CmdSearch"));
    CmdCancelSearch = new QPushButton(QStringLiteral("Cancel Search"), FrameSearch);
    CmdCancelSearch->setObjectName(QStringLiteral("CmdCancelSearch"));

    auto *grid = new QGridLayout(FrameSearch);
    auto label = [&](const QString &text, int row, int col) { grid->addWidget(new QLabel(text, FrameSearch), row, col); };
    label(QStringLiteral("Event"), 0, 0);
    grid->addWidget(Combo1, 0, 1, 1, 3);
    label(QStringLiteral("Number"), 1, 0);
    grid->addWidget(SearchNo, 1, 1);
    label(QStringLiteral("Teacher"), 1, 2);
    grid->addWidget(SearchTeacher, 1, 3);
    label(QStringLiteral("Forename"), 2, 0);
    grid->addWidget(SearchForename, 2, 1);
    label(QStringLiteral("Surname"), 2, 2);
    grid->addWidget(SearchSurname, 2, 3);
    label(QStringLiteral("Age From"), 3, 0);
    grid->addWidget(SearchAgeFrom, 3, 1);
    label(QStringLiteral("To"), 3, 2);
    grid->addWidget(SearchAgeTo, 3, 3);
    label(QStringLiteral("Registered"), 4, 0);
    grid->addWidget(Search_Registered, 4, 1);
    label(QStringLiteral("Order By"), 4, 2);
    grid->addWidget(SearchOrder, 4, 3);
    grid->addWidget(chk_winners, 5, 0, 1, 4);
    grid->addWidget(note, 6, 0, 1, 4);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(CmdSearch);
    buttons->addWidget(CmdCancelSearch);
    grid->addLayout(buttons, 7, 0, 1, 4);

    connect(Combo1, &QComboBox::activated, this, [this](int i) { m_searchCode = m_searchCodes.value(i); });
    connect(Search_Registered, &QComboBox::activated, this, [this](int i) {
        m_registeredFilter = Registered_Filter(Search_Registered->itemData(i).toInt(), m_registeredFilter);
    });
    connect(SearchOrder, &QComboBox::activated, this,
            [this](int i) { m_searchOrder = Search_Order(SearchOrder->itemData(i).toInt()); });
    connect(CmdSearch, &QPushButton::clicked, this, &frmCompetitors::CmdSearch_Click);
    connect(CmdCancelSearch, &QPushButton::clicked, this, &frmCompetitors::CmdCancelSearch_Click);
}

void frmCompetitors::Fill_Combo1()
{
    m_searchCode.clear();
    Combo1->clear();
    const Event_List list = Load_Search_Events(conn(), Rules().competitionId());
    Combo1->addItems(list.names);
    Combo1->setCurrentIndex(-1);
    m_searchCodes = list.codes;
}

void frmCompetitors::Reset_Search()
{
    m_registeredFilter.clear();
    for (QLineEdit *box : {SearchNo, SearchForename, SearchSurname, SearchTeacher, SearchAgeFrom, SearchAgeTo})
        box->clear();
    chk_winners->setChecked(false);
    m_searchOrder = QStringLiteral("2 DESC");
    Search_Registered->setCurrentIndex(0);
    SearchOrder->setCurrentIndex(0);
}

void frmCompetitors::CmdViewSearch_Click()
{
    Fill_Combo1();
    Reset_Search();
    Place_Frames();
    FrameSearch->show();
    FrameSearch->raise();
    SearchNo->setFocus();
}

void frmCompetitors::CmdCancelSearch_Click()
{
    FrameSearch->hide();
    MSFlexGrid1->setFocus();
}

void frmCompetitors::CmdSearch_Click()
{
    // A number box that holds no number says so; the search does not run.
    for (QLineEdit *box : {SearchNo, SearchAgeFrom, SearchAgeTo}) {
        try {
            if (!box->text().isEmpty())
                Bare_Number(box->text());
        } catch (const AppError &) {
            Msg_Box(QStringLiteral("Invalid number!"), vbExclamation, QStringLiteral("Invalid Data"));
            box->setFocus();
            box->selectAll();
            return;
        }
    }
    Competitor_Search s;
    s.groupCode = m_searchCode;
    s.winnersOnly = chk_winners->isChecked();
    s.number = SearchNo->text();
    s.forename = SearchForename->text();
    s.surname = SearchSurname->text();
    s.teacher = SearchTeacher->text();
    s.ageFrom = SearchAgeFrom->text();
    s.ageTo = SearchAgeTo->text();
    s.registeredFilter = m_registeredFilter;
    s.order = m_searchOrder;

    const QString before = Rules().statement();
    Rules().setStatement(Search_Statement(Rules().competitionId(), s));
    FrameSearch->hide();
    try {
        Refresh_Grid();
    } catch (const AppError &e) {
        // A statement that fails must not leave the grid without one that runs.
        Msg_Box(Fault_Text(e.message(), QStringLiteral("Searching the competitors")), vbExclamation, App_Title);
        Rules().setStatement(before);
        Refresh_Grid();
        FrameSearch->show();
        FrameSearch->raise();
        return;
    }
    MSFlexGrid1->setFocus();
}
