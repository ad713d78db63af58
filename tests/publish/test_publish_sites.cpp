#include "publish/FrmHTML2.h"
#include "publish/frmbrogard.h"
#include "publish/results_site.h"
#include "support/test_env.h"

#include "core/codec.h"
#include "core/contacts.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTest>
#include <memory>

// Both editions of the results site, written from a realistic competition
// through their screens, with the hidden letters seeded.
class TestPublishSites : public QObject
{
    Q_OBJECT
private slots:
    void sites_data();
    void sites();
    void pageText_data();
    void pageText();
    void folders_data();
    void folders();
    void selection_data();
    void selection();

private:
    std::unique_ptr<TestDataFolder> m_dir;
    void Load_Competition(const QString &name);
    // Opens the screen, ticks the boxes given ("all" for every one), runs it.
    void Run_Screen(const QString &form, const QString &ticks, const QString &browse = QString());
    QString Folder() const { return Data_Dir + QStringLiteral("Html/") + Current_Competition_Name + QLatin1Char('/'); }
};

static QByteArray Read(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

// The distribution's addresses are set at build time: expected pages name them by token.
static QByteArray Tokens(QByteArray page)
{
    const QList<QPair<const char *, const char *>> tokens{{Contacts::Publisher_Rights, "{publisher-rights}"},
                                                          {Contacts::Meta_Description, "{meta-description}"},
                                                          {Contacts::Publisher_Url, "{publisher-url}"}};
    for (const auto &t : tokens)
        page.replace(To_1252(QString::fromUtf8(t.first)), t.second);
    return page;
}

void TestPublishSites::Load_Competition(const QString &name)
{
    m_dir = std::make_unique<TestDataFolder>();
    Connection conn;
    conn.open();
    Transaction tx(conn);
    for (const QString &sql : QString::fromUtf8(Read(PUBLISH_TEST_DIR "/competition.sql")).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        conn.execute(sql);
    conn.execute(QStringLiteral("UPDATE competitions SET competition_name = ?"), {name});
    Current_Competition_Id = 7;
    Current_Competition_Name = name;
    Current_Competition_Date = QStringLiteral("04/07/2026");
}

void TestPublishSites::Run_Screen(const QString &form, const QString &ticks, const QString &browse)
{
    std::unique_ptr<Site_Screen> screen(form == QLatin1String("FrmHTML2") ? static_cast<Site_Screen *>(new FrmHTML2)
                                                                          : new frmbrogard);
    screen->Seed_Letters(16);
    if (!browse.isEmpty()) {
        Dialogs::queueText(browse);
        screen->findChild<QPushButton *>(QStringLiteral("CmdBrowse"))->click();
    }
    auto *sel = screen->findChild<QPushButton *>(QStringLiteral("CmdSel"));
    if (ticks == QLatin1String("all")) {
        sel->click();
        QCOMPARE(sel->text(), QStringLiteral("Unselect All"));
    } else {
        sel->click();
        sel->click();  // all ticked, then all unticked again
        QCOMPARE(sel->text(), QStringLiteral("Select All"));
        for (const QString &i : ticks.split(QLatin1Char(','), Qt::SkipEmptyParts))
            screen->findChild<QCheckBox *>(QStringLiteral("arrayText") + i)->click();
    }
    screen->findChild<QPushButton *>(QStringLiteral("CmdRun"))->click();
}

void TestPublishSites::sites_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("expected");
    QTest::newRow("results website") << "FrmHTML2" << "results";
    QTest::newRow("hosted edition") << "frmbrogard" << "hosted";
}

// Every file of the site, byte for byte.
void TestPublishSites::sites()
{
    QFETCH(QString, form);
    QFETCH(QString, expected);
    Load_Competition(QStringLiteral("St Andrew's Highland Games"));
    Run_Screen(form, QStringLiteral("all"));
    QCOMPARE(Dialogs::texts(), QStringList{QStringLiteral("HTML files created in directory: ") + Data_Dir + "Html/"});
    const QDir want(QStringLiteral(PUBLISH_TEST_DIR "/expected/") + expected);
    if (qEnvironmentVariableIsSet("PUBLISH_WRITE_EXPECTED"))
        for (const QString &f : QDir(Folder()).entryList(QDir::Files))
            if (QFile out(want.filePath(f)); out.open(QIODevice::WriteOnly))
                out.write(Tokens(Read(Folder() + f)));
    QCOMPARE(QDir(Folder()).entryList(QDir::Files), want.entryList(QDir::Files));
    for (const QString &f : want.entryList(QDir::Files)) {
        const QByteArray got = Tokens(Read(Folder() + f)), exp = Read(want.filePath(f));
        int at = 0;
        while (at < got.size() && at < exp.size() && got[at] == exp[at])
            ++at;
        QVERIFY2(got == exp, qPrintable(f + QStringLiteral(" differs at byte %1: ").arg(at) + From_1252(got.mid(at, 80))));
    }
}

void TestPublishSites::pageText_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("text");
    QTest::newRow("tied winners side by side") << "FrmHTML2" << "index.htm"
        << "<a href=01.htm>Overall: Ailsa Munro, PerthEilidh Fraser, Oban</a>";
    QTest::newRow("split winners") << "FrmHTML2" << "index.htm"
        << "<a href=02.htm>Highland: Mhairi Campbell, Fort William<br>National: Rhona Stewart, Elgin<br>Overall: Mhairi Campbell, Fort William</a>";
    QTest::newRow("no results, empty winners") << "FrmHTML2" << "index.htm" << "<td><a href=03.htm></a></td></tr>\r";
    QTest::newRow("page without results") << "FrmHTML2" << "03.htm"
        << "12 & Under </H2><table><br><br><B>Dance Results</B><table><tr><td valign=top><br><br><a href=index.htm>";
    QTest::newRow("tie behind the number") << "FrmHTML2" << "01.htm" << "<table>1=) Ailsa Munro 1=) Eilidh Fraser 3) ";
    QTest::newRow("stylesheet on one line") << "FrmHTML2" << "main.css" << "background-color: white;}H1 {font-size: 10pt;";
    QTest::newRow("negative bar") << "frmbrogard" << "C1s.htm" << "<td width=60px>13 x 1st</td><td><table border=0 width=320px><tr><td width=325px height=10px bgcolor=red></td><td width=-5px></td>";
    QTest::newRow("premiership stats link") << "frmbrogard" << "P1.htm" << "<a href=P1s.htm>Group Stats</a>";
    QTest::newRow("no dancers, headings only") << "frmbrogard" << "03c.htm" << "Town/ Country</TD></TR>\r\n</TABLE>";
    QTest::newRow("placed dancer linked") << "frmbrogard" << "C1c.htm" << "<TD class=scorerow><a href=C1.htm>501<SPAN class=no>";
    QTest::newRow("windows-1252 head") << "frmbrogard" << "index.htm" << "content=text/html; charset=windows-1252><META name=description";
}

// What each Part's case looks like in the pages written.
void TestPublishSites::pageText()
{
    QFETCH(QString, form);
    QFETCH(QString, file);
    QFETCH(QString, text);
    Load_Competition(QStringLiteral("St Andrew's Highland Games"));
    Run_Screen(form, QStringLiteral("all"));
    const QString page = From_1252(Read(Folder() + file));
    QVERIFY2(page.contains(text), qPrintable(page.left(600)));
}

void TestPublishSites::folders_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QStringList>("html");  // what stands in Html afterwards, with the folders' files
    QTest::newRow("slash and ampersand, cleaned folder left empty") << "Games/Fair & Gala" << "FrmHTML2" << "Path not found"
        << QStringList{"GamesFair  Gala"};
    QTest::newRow("ampersand, files miss the cleaned folder") << "Oban & Lorn Games" << "FrmHTML2" << "Path not found"
        << QStringList{"Oban  Lorn Games"};
    QTest::newRow("slash, hosted folder can't be made") << "Games/Fair & Gala" << "frmbrogard" << "Path not found" << QStringList{};
    QTest::newRow("ampersand, hosted folder as it stands") << "Oban & Lorn Games" << "frmbrogard" << "created"
        << QStringList{"Oban & Lorn Games", "Oban & Lorn Games/03.htm", "Oban & Lorn Games/03c.htm", "Oban & Lorn Games/competitors.htm",
                       "Oban & Lorn Games/default.css", "Oban & Lorn Games/index.htm"};
    QTest::newRow("a page that can't be written is left out") << "Perth Games" << "FrmHTML2" << "created"
        << QStringList{"Perth Games", "Perth Games/index.htm", "Perth Games/main.css"};
    QTest::newRow("hosted page left out, the run goes on") << "Perth Games" << "frmbrogard" << "created"
        << QStringList{"Perth Games", "Perth Games/03.htm", "Perth Games/competitors.htm", "Perth Games/default.css",
                       "Perth Games/index.htm"};
}

// The folder's name, the writes that miss it, and a page that fails alone.
void TestPublishSites::folders()
{
    QFETCH(QString, name);
    QFETCH(QString, form);
    QFETCH(QString, box);
    QFETCH(QStringList, html);
    Load_Competition(name);
    const QString blocked = Data_Dir + "Html/Perth Games/" + (form == "FrmHTML2" ? "03" : "03c") + ".htm/x";
    if (name == QLatin1String("Perth Games"))
        QVERIFY(QDir().mkpath(blocked));  // a folder where the page should go
    Run_Screen(form, QStringLiteral("0"));
    QCOMPARE(Dialogs::texts().join(QString()).replace(QStringLiteral("HTML files created in directory: ") + Data_Dir + "Html/", "created").replace("Writing the web pages to " + Data_Dir + ": ", ""), box);
    QStringList found;
    for (const QString &d : QDir(Data_Dir + "Html").entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        found << d;
        for (const QString &f : QDir(Data_Dir + "Html/" + d).entryList(QDir::Files))
            found << d + '/' + f;
    }
    QCOMPARE(found, html);
    if (name == QLatin1String("Perth Games"))
        QVERIFY(From_1252(Read(Data_Dir + "Html/Perth Games/" + (form == "FrmHTML2" ? "index.htm" : "competitors.htm"))).contains("href=03"));
}

void TestPublishSites::selection_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("ticks");
    QTest::addColumn<QString>("browse");
    QTest::addColumn<QStringList>("files");
    QTest::newRow("nothing ticked") << "FrmHTML2" << "" << "" << QStringList{"index.htm", "main.css"};
    QTest::newRow("two ticked, in display-name order") << "FrmHTML2" << "1,4" << "" << QStringList{"01.htm", "C1.htm", "index.htm", "main.css"};
    QTest::newRow("chosen location") << "FrmHTML2" << "3" << "elsewhere" << QStringList{"index.htm", "main.css", "P1.htm"};
    QTest::newRow("hosted, nothing ticked") << "frmbrogard" << "" << "" << QStringList{"competitors.htm", "default.css", "index.htm"};
    QTest::newRow("hosted championship") << "frmbrogard" << "3" << "" << QStringList{"C1.htm", "C1c.htm", "C1s.htm", "competitors.htm", "default.css", "index.htm"};
}

void TestPublishSites::selection()
{
    QFETCH(QString, form);
    QFETCH(QString, ticks);
    QFETCH(QString, browse);
    QFETCH(QStringList, files);
    Load_Competition(QStringLiteral("Perth Games"));
    const QString location = browse.isEmpty() ? Data_Dir : Data_Dir + browse + '/';
    QVERIFY(QDir().mkpath(location));
    Run_Screen(form, ticks, browse.isEmpty() ? QString() : location);
    QCOMPARE(Dialogs::lastRecord().text, QStringLiteral("HTML files created in directory: ") + location + "Html/");
    QCOMPARE(QDir(location + "Html/Perth Games").entryList(QDir::Files), files);
    if (ticks.isEmpty() && form == QLatin1String("FrmHTML2")) {
        Connection conn;
        conn.open();
        Letter_Source letters;
        const Site_Source src{conn, 7, Current_Competition_Name, Current_Competition_Date, letters, {}, {}};
        QCOMPARE(From_1252(Read(location + "Html/Perth Games/index.htm")), Results_Site::Index_Head(src) + Results_Site::Index_Foot());
    }
}

QTEST_MAIN(TestPublishSites)
#include "test_publish_sites.moc"
