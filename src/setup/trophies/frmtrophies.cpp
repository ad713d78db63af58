#include "frmtrophies.h"
#include "trophy_logic.h"

#include "setup/panel_widgets.h"

#include "core/contacts.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "reports/report.h"
#include "reports/report_output.h"

#include <QKeyEvent>
#include <QTimer>

frmtrophies::frmtrophies(QWidget *parent) : Screen(QStringLiteral("frmtrophies"), QStringLiteral("Overall Trophies"), parent)
{
    List1 = Panel::List(this, "List1", QStringLiteral("Click a trophy to show its table"));
    auto *l = Panel::Column(this, 700);
    auto *hint = new QLabel(QStringLiteral("Click a trophy (or press Enter on it) to show the ten best dancers. "
                                           "Trophies are made and changed in Admin, Trophy Wizard."));
    hint->setWordWrap(true);
    l->addWidget(hint);
    l->addLayout(Panel::Captioned(QStringLiteral("Overall Trophies"), List1), 1);
    resize(480, 420);
    if (Open_Connection()) {
        for (const Trophy &t : Read_Trophies(conn(), Current_Competition_Id)) {
            List1->addItem(t.name);
            m_ids << t.id;
        }
    }
    List1->installEventFilter(this);
    List1->setCurrentRow(0);
    // The main window's frame takes the focus as it shows the screen.
    QTimer::singleShot(0, List1, [this] { List1->setFocus(); });
    connect(List1, &QListWidget::itemClicked, this, &frmtrophies::List1_Click);
}

frmtrophies::~frmtrophies() = default;

bool frmtrophies::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == List1 && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            List1_Click();
            return true;
        }
    }
    return Screen::eventFilter(watched, event);
}

void frmtrophies::List1_Click()
{
    const int pos = List1->currentRow();
    if (pos < 0)
        return;
    try {
        auto report = Report::Load(QStringLiteral("DataReport8"));
        Fill_Trophy_Report(conn(), *report, m_ids.value(pos), List1->item(pos)->text());
        Show_Report(report, this);
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("There was an error. Please take an export of this competition and email it to ")
                + QLatin1String(Contacts::Support_Email) + QStringLiteral(" for help"));
    }
}
