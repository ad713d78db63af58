#include "site_screen.h"
#include "site_upload.h"

#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "core/doing.h"
#include "ui/application.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

static const int Box_Pitch = 20;  // tick boxes stand one line apart

Site_Screen::Site_Screen(const Site_Edition &edition, QWidget *parent)
    : Screen(edition.formName, edition.caption, parent), m_edition(edition)
{
    Build_Controls();
    if (Open_Connection())
        Form_Load();
}

Site_Screen::~Site_Screen() = default;

void Site_Screen::Build_Controls()
{
    auto button = [this](const char *name, const QString &caption) {
        auto *b = new QPushButton(caption, this);
        b->setObjectName(QLatin1String(name));
        return b;
    };
    Label1 = new QLabel(QStringLiteral("Tick the events to publish:"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    m_view = new QWidget(this);
    m_view->setMinimumSize(360, 240);
    m_view->setAutoFillBackground(true);
    PicBox = new QWidget(m_view);
    PicBox->setObjectName(QStringLiteral("PicBox"));
    lblFiller = new QLabel(PicBox);
    lblFiller->setObjectName(QStringLiteral("lblFiller"));
    VScroll = new QScrollBar(Qt::Vertical, this);
    VScroll->setObjectName(QStringLiteral("VScroll"));
    connect(VScroll, &QScrollBar::valueChanged, this, [this](int v) { PicBox->move(0, -v); });
    CmdSel = button("CmdSel", QStringLiteral("Select All"));
    CmdRun = button("CmdRun", QStringLiteral("Create Pages"));
    CmdUpload = button("CmdUpload", QStringLiteral("Upload"));
    CmdUpload->setToolTip(QStringLiteral("Send the pages just created to an FTP server"));
    CmdUpload->setEnabled(false);
    connect(CmdUpload, &QPushButton::clicked, this, &Site_Screen::CmdUpload_Click);
    if (m_edition.browse) {
        CmdBrowse = button("CmdBrowse", QStringLiteral("Browse..."));
        connect(CmdBrowse, &QPushButton::clicked, this, &Site_Screen::CmdBrowse_Click);
    }
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    connect(CmdSel, &QPushButton::clicked, this, &Site_Screen::CmdSel_Click);
    connect(CmdRun, &QPushButton::clicked, this, &Site_Screen::CmdRun_Click);

    auto *list = new QHBoxLayout;
    list->addWidget(m_view, 1);
    list->addWidget(VScroll);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(CmdSel);
    if (CmdBrowse)
        buttons->addWidget(CmdBrowse);
    buttons->addStretch(1);
    buttons->addWidget(CmdRun);
    buttons->addWidget(CmdUpload);
    auto *main = new QVBoxLayout(this);
    main->addWidget(Label1);
    main->addLayout(list, 1);
    main->addLayout(buttons);
    main->addWidget(ProgressBar1);
}

void Site_Screen::Form_Load()
{
    Doing doing(QStringLiteral("Reading the events for the web pages"));
    try {
        m_events = Load_Site_Events(conn(), m_edition.listSql(Current_Competition_Id));
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
    m_selection = QList<Site_Event>(m_events.size());
    for (int i = 0; i < m_events.size(); ++i) {
        // An event name such as "8 & Under" shows its ampersand, not a shortcut.
        auto *box = new QCheckBox(QString(m_events[i].name).replace(QLatin1Char('&'), QLatin1String("&&")), PicBox);
        box->setObjectName(QStringLiteral("arrayText%1").arg(i));
        connect(box, &QCheckBox::clicked, this, [this, i] { arrayText_Click(i); });
        arrayText << box;
    }
    Place_Boxes();
}

void Site_Screen::Place_Boxes()
{
    const int width = qMax(m_view->width(), 200);
    for (int i = 0; i < arrayText.size(); ++i)
        arrayText[i]->setGeometry(4, 4 + i * Box_Pitch, width - 8, Box_Pitch);
    const int height = 8 + int(arrayText.size()) * Box_Pitch;
    lblFiller->setGeometry(0, height, width, 4);
    PicBox->resize(width, height + 4);
    VScroll->setRange(0, qMax(0, PicBox->height() - m_view->height()));
    VScroll->setPageStep(m_view->height());
    VScroll->setSingleStep(Box_Pitch);
}

void Site_Screen::resizeEvent(QResizeEvent *event)
{
    Screen::resizeEvent(event);
    Place_Boxes();
}

QList<Site_Event> Site_Screen::Selected() const
{
    QList<Site_Event> out;
    for (const Site_Event &ev : m_selection)
        if (!ev.groupId.isEmpty())
            out << ev;
    return out;
}

void Site_Screen::arrayText_Click(int index)
{
    m_selection[index] = arrayText[index]->isChecked() ? m_events[index] : Site_Event{};
}

void Site_Screen::CmdSel_Click()
{
    const bool tick = CmdSel->text() == QLatin1String("Select All");
    for (int i = 0; i < arrayText.size(); ++i) {
        arrayText[i]->setChecked(tick);
        arrayText_Click(i);
    }
    CmdSel->setText(tick ? QStringLiteral("Unselect All") : QStringLiteral("Select All"));
}

void Site_Screen::CmdBrowse_Click()
{
    const QString folder = Browse_For_Folder(QStringLiteral("&Select a location:"), m_location);
    if (!folder.isEmpty())
        m_location = folder;
}

void Site_Screen::CmdRun_Click()
{
    QString location = m_location.isEmpty() ? Data_Dir : QDir::cleanPath(m_location) + QLatin1Char('/');
    const QList<Site_Event> selected = Selected();
    ProgressBar1->setRange(0, qMax(1, int(selected.size())));
    ProgressBar1->setValue(0);
    setEnabled(false);
    Doing doing(QStringLiteral("Writing the web pages to ") + location);
    try {
        Site_Source src{conn(), Current_Competition_Id, Current_Competition_Name, Current_Competition_Date, m_letters, {}, {}};
        Load_Site_Lists(src);
        const QString html = m_edition.run(src, location, selected, [this] {
            ProgressBar1->setValue(ProgressBar1->value() + 1);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
        setEnabled(true);
        m_site = QDir(html).filePath(Current_Competition_Name);
        CmdUpload->setEnabled(true);
        Msg_Box(QStringLiteral("HTML files created in directory: ") + html);
    } catch (const AppError &e) {
        setEnabled(true);
        Show_Unhandled_Fault(e.message());
    }
}

void Site_Screen::CmdUpload_Click()
{
    Upload_Target target = Load_Upload_Target();
    QList<Input_Field> fields{{QStringLiteral("Server:"), target.server},
                              {QStringLiteral("User name:"), target.user},
                              {QStringLiteral("Remote folder:"), target.folder},
                              {QStringLiteral("Password:"), QString(), true}};
    const QString prompt = QStringLiteral("Send the results site to an FTP server.\nThe pages go into a folder "
                                          "named for the competition under the remote folder.");
    if (!Input_Form(prompt, fields, App_Title + QStringLiteral(" - Upload Results")))
        return;
    target = {fields[0].value.trimmed(), fields[1].value.trimmed(), fields[2].value.trimmed()};
    if (target.server.isEmpty()) {
        Msg_Box(QStringLiteral("Type the name of the FTP server."), vbExclamation);
        return;
    }
    Save_Upload_Target(target);
    ProgressBar1->setRange(0, 1000);
    ProgressBar1->setValue(0);
    setEnabled(false);
    const QString error = Upload_Site(target, fields[3].value, m_site, [this](qint64 done, qint64 total) {
        ProgressBar1->setValue(total > 0 ? int(done * 1000 / total) : 1000);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    setEnabled(true);
    if (!error.isEmpty()) {
        Msg_Box(error, vbExclamation);
        return;
    }
    Msg_Box(QStringLiteral("Results site sent to ftp://%1%2/").arg(target.server, Remote_Site_Folder(target, m_site)));
}

void Site_Screen::Form_Unload()
{
    m_events.clear();
    m_selection.clear();
}
