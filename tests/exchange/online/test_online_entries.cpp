// Online entries from request to load, against a real HTTP and FTP server on 127.0.0.1.
#include "exchange/online/frmonlinereg.h"
#include "exchange/online/online_entries.h"
#include "ftp_test_server.h"

#include "core/codec.h"
#include "core/contacts.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "ui/grid/flex_grid.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {
const int Reg_Id = 4711;

// One entry line of the service: 25 fields, tab-separated.
QString Entry(const QString &first, const QString &last, const QString &age, const QString &events,
              const QString &txn, const QString &country = "GB")
{
    return QString("77\t%1\t%2\t\t01738 555123\t%3\t\tMrs Low\t1 Tay St\t\tPerth\t\tPH1 5AA\t%4\t\t\t\t\t\t\t%5\t12\t\t%6\tend\n")
        .arg(first, last, age, country, events, txn);
}
} // namespace

class TestOnlineEntries : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void check_preview_and_load_data();
    void check_preview_and_load();
    void checks_that_find_nothing_data();
    void checks_that_find_nothing();

private:
    void start(const QByteArray &file, const QString &ftpPassword = QString::fromUtf8(Contacts::Entries_Ftp_Password));
    void wait_on_server(const QByteArray &file);
    void click(QPushButton *button) { QTest::mouseClick(button, Qt::LeftButton); }
    QString groups(int number);

    std::unique_ptr<TestDataFolder> m_env;
    std::unique_ptr<Ftp_Test_Server> m_server;
    std::unique_ptr<frmonlinereg> m_screen;
    QTemporaryDir m_waiting;
    Connection m_conn;
    short m_comp = 0;
};

void TestOnlineEntries::init()
{
    m_screen.reset();
    m_server.reset();
    m_conn.close();
    m_env = std::make_unique<TestDataFolder>();
    m_conn.open();
    m_comp = Fixture::Competition(m_conn);
    Fixture::Competitor(m_conn, m_comp, 10, "Amy", "Watt", {"A1"});
    Fixture::Competitor(m_conn, m_comp, 12, "Beth", "Abel", {"B2"});
    m_conn.execute("UPDATE competitors SET txnid = 'TX-KNOWN' WHERE competitor_id = 12");
    m_conn.execute(QStringLiteral("UPDATE competitions SET registration_id = %1, registration_key = 'k3y', "
                                  "registration_email = 'sec@games.example'").arg(Reg_Id));
    Current_Competition_Id = m_comp;
}

void TestOnlineEntries::wait_on_server(const QByteArray &file)
{
    QFile waiting(m_waiting.filePath(QString::number(Reg_Id) + ".csv"));
    QVERIFY(waiting.open(QIODevice::WriteOnly));
    waiting.write(file);
}

void TestOnlineEntries::start(const QByteArray &file, const QString &ftpPassword)
{
    wait_on_server(file);
    m_server = std::make_unique<Ftp_Test_Server>(QString::fromUtf8(Contacts::Entries_Ftp_User), ftpPassword,
                                                 m_waiting.path());
    QVERIFY(m_server->started());
    Set_Entries_Service({QStringLiteral("127.0.0.1"), m_server->httpPort(), m_server->ftpPort()});
    m_screen = std::make_unique<frmonlinereg>();
    m_screen->resize(1150, 420);
    m_screen->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
}

QString TestOnlineEntries::groups(int number)
{
    return m_conn.scalar(QString("SELECT group_concat(group_id) FROM (SELECT group_id FROM competitor_groups "
                                 "WHERE competitor_id = %1 ORDER BY rowid)").arg(number)).toString();
}

void TestOnlineEntries::check_preview_and_load_data()
{
    QTest::addColumn<bool>("utf8");        // the file's encoding, else Windows-1252
    QTest::addColumn<QString>("events");   // of the second new entry, Morag Bain
    QTest::addColumn<QString>("age");
    QTest::addColumn<int>("held");         // a number held by a mark only, before the load
    QTest::addColumn<QStringList>("boxes");
    QTest::addColumn<QString>("loaded");   // the new entries under 9: number, name, events
    const QStringList none;
    const QStringList fault{"There was en error with the load. Please try again later!"};
    QTest::newRow("loads, UTF-8") << true << "A1" << "8" << 0 << none << "8 Morag A1;7 \u00c9ilidh B2";
    QTest::newRow("two blanks give an empty event, Windows-1252") << false << "A1  B2" << "8" << 0 << none
                                                                  << "8 Morag A1,,B2;7 \u00c9ilidh B2";
    QTest::newRow("a number held elsewhere is passed over") << true << "A1" << "8" << 8 << none
                                                            << "7 Morag A1;6 \u00c9ilidh B2";
    // A failing row leaves nothing behind, its entries included.
    QTest::newRow("ninth event") << true << "1 2 3 4 5 6 7 8 9" << "8" << 0 << fault << "";
    QTest::newRow("empty age") << true << "A1" << "" << 0 << fault << "";
}

void TestOnlineEntries::check_preview_and_load()
{
    QFETCH(bool, utf8);
    QFETCH(QString, events);
    QFETCH(QString, age);
    QFETCH(int, held);
    QFETCH(QStringList, boxes);
    QFETCH(QString, loaded);
    const QString last = Entry("\u00e9ilidh", "D\u00f9ghlas", "10", "B2", "TX-4");
    const QString text = "header\n" + Entry("amy", "WATT", "7", "A1", "TX-1")   // a namesake entered by hand
                         + Entry("Zoe", "Kerr", "9", "B2", "TX-KNOWN")           // a payment already loaded
                         + Entry("seonaid", "O'Neill", "9", "A1 B2", "TX-2")
                         + "77\tKirsty\tRoss\t\t\t9\n"                          // too few fields
                         + Entry("morag", "Bain", age, events, "TX-3", "US") + last;
    start(utf8 ? text.toUtf8() : To_1252(text));
    click(m_screen->cmd_check);
    QCOMPARE(Dialogs::texts(), QStringList());
    QVERIFY(m_server->log().contains(QStringLiteral("GET /tallier/onlinereg/online_entries.php?compid=%1").arg(Reg_Id)));
    QVERIFY(!QFile::exists(m_server->file(QString::number(Reg_Id) + ".csv")));
    QCOMPARE(m_screen->lbl_check->text(), "3 new registrations found (1 incomplete line skipped)");
    QVERIFY(m_screen->cmd_load->isVisible() && m_screen->MSFlexGrid1->isVisible());
    QCOMPARE(m_screen->comp_no->text(), "9");
    FlexGrid *grid = m_screen->MSFlexGrid1;
    QCOMPARE(grid->Text(1, 0) + " " + grid->Text(1, 1) + " " + grid->Text(1, 11), "Seonaid ONeill A1 B2");
    QCOMPARE(grid->Text(2, 0) + " " + grid->Text(3, 1) + "|" + grid->Text(4, 0), "Morag D\u00f9ghlas|");
    if (!qEnvironmentVariableIsEmpty("STRATHMARK_SHOT_DIR") && loaded.startsWith("8 Morag A1;"))
        m_screen->grab().save(qEnvironmentVariable("STRATHMARK_SHOT_DIR") + "/frmonlinereg.png");

    if (held)
        m_conn.execute(QString("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, "
                               "points_awarded1) VALUES (%1, 'A1', 1, %2, 5)").arg(m_comp).arg(held));
    click(m_screen->cmd_load);
    QCOMPARE(Dialogs::texts(), boxes);
    QCOMPARE(groups(9), "A1,B2");
    QCOMPARE(m_conn.scalar("SELECT forename||'|'||surname||'|'||town||'|'||age||'|'||fee||'|'||txnid||'|'||group_id2"
                           "||'|'||date_received FROM competitors WHERE competitor_id = 9").toString(),
             "Seonaid|ONeill|Perth, UK|9|12|TX-2|B2|" + QDate::currentDate().toString("dd/MM/yyyy"));
    QStringList below;
    for (RowSet rs = m_conn.query("SELECT competitor_id, forename FROM competitors WHERE competitor_id < 9 ORDER BY 1 DESC");
         !rs.eof(); rs.next())
        below << rs.text("competitor_id") + " " + rs.text("forename") + " " + groups(rs.value(0).toInt());
    QCOMPARE(below.join(';'), loaded);
    QCOMPARE(Fixture::Count(m_conn, "competitor_groups", "competitor_id NOT IN (SELECT competitor_id FROM competitors)"), 0);
    if (loaded.isEmpty())
        return;
    QCOMPARE(m_screen->lbl_check->text(), "3 Records Successfully Loaded");
    // Checked again, the service gives a shorter file that ends inside an old line: the
    // local copy is the new file only, and no leftover of the old one is offered.
    wait_on_server(("header\n" + last).toUtf8());
    click(m_screen->cmd_check);
    QCOMPARE(Dialogs::texts(), boxes);
    QCOMPARE(m_screen->lbl_check->text(), "0 new registrations found");
    QVERIFY(!m_screen->cmd_load->isVisible());
}

void TestOnlineEntries::checks_that_find_nothing_data()
{
    QTest::addColumn<QString>("unlink");         // column emptied on the competition
    QTest::addColumn<QString>("ftpPassword");    // of the server; empty: the right one
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("boxes");
    QTest::addColumn<QString>("label");
    const QByteArray one = ("header\n" + Entry("Iona", "Grant", "10", "B2", "TX-4")).toUtf8();
    QTest::newRow("no key") << "registration_key" << "" << one
                            << QStringList{"Err 1: Online registration is not setup for this event"} << "";
    QTest::newRow("wrong ftp password") << "" << "other" << one
                                        << QStringList{"530 Authentication failed.", "No Registrations"} << "";
    QTest::newRow("header only") << "" << "" << QByteArray("header\n") << QStringList() << "0 new registrations found";
}

void TestOnlineEntries::checks_that_find_nothing()
{
    QFETCH(QString, unlink);
    QFETCH(QString, ftpPassword);
    QFETCH(QByteArray, file);
    QFETCH(QStringList, boxes);
    QFETCH(QString, label);
    if (!unlink.isEmpty())
        m_conn.execute(QStringLiteral("UPDATE competitions SET %1 = NULL").arg(unlink));
    start(file, ftpPassword.isEmpty() ? QString::fromUtf8(Contacts::Entries_Ftp_Password) : ftpPassword);
    click(m_screen->cmd_check);
    QCOMPARE(Dialogs::texts(), boxes);
    QCOMPARE(m_screen->lbl_check->text(), label);
    QVERIFY(!m_screen->cmd_load->isVisible());
    QVERIFY(m_screen->cmd_check->isEnabled());
    // The request goes out even for a competition that is not linked.
    QVERIFY(m_server->log().contains(QStringLiteral("GET /tallier/onlinereg/online_entries.php?compid=%1").arg(Reg_Id)));
}

QTEST_MAIN(TestOnlineEntries)
#include "test_online_entries.moc"
