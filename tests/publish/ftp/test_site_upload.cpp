// The written results site sent from each screen's Upload button to a real FTP server.
#include "ftp_test_server.h"
#include "publish/FrmHTML2.h"
#include "publish/frmbrogard.h"
#include "support/test_env.h"

#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"

#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QTest>

class TestSiteUpload : public QObject
{
    Q_OBJECT
private slots:
    void upload_data();
    void upload();
};

static QByteArray Read(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

void TestSiteUpload::upload_data()
{
    QTest::addColumn<QString>("form");
    QTest::newRow("results website") << "FrmHTML2";
    QTest::newRow("hosted edition") << "frmbrogard";
}

void TestSiteUpload::upload()
{
    QFETCH(QString, form);
    TestDataFolder dir;
    Ftp_Test_Server server("tally", "Secret'9");
    QVERIFY(server.started());
    Connection conn;
    conn.open();
    for (const QString &sql : QString::fromUtf8(Read(PUBLISH_TEST_DIR "/competition.sql")).split('\n', Qt::SkipEmptyParts))
        conn.execute(sql);
    Current_Competition_Id = 7;
    Current_Competition_Name = "St Andrew's Games";
    QScopedPointer<Site_Screen> screen(form == "FrmHTML2" ? static_cast<Site_Screen *>(new FrmHTML2) : new frmbrogard);
    auto *upload = screen->findChild<QPushButton *>("CmdUpload");
    QVERIFY(!upload->isEnabled());   // nothing written yet
    screen->findChild<QPushButton *>("CmdSel")->click();
    screen->findChild<QPushButton *>("CmdRun")->click();
    QVERIFY(upload->isEnabled());

    // A wrong password, then Cancel: the client's text after what was being done, nothing sent.
    const QString host = QStringLiteral("127.0.0.1:%1").arg(server.ftpPort());
    Dialogs::queueForm({host, "tally", "live/results", "wrong"});
    upload->click();
    QCOMPARE(Dialogs::lastRecord().text, "Connecting to " + host + " as tally:\n530 Authentication failed.");
    QVERIFY(screen->isEnabled());
    Dialogs::queueForm({});
    upload->click();
    QCOMPARE(Dialogs::lastRecord().kind, QStringLiteral("form"));
    QVERIFY(QDir(server.root()).isEmpty());

    // The names come back as remembered; only the password is typed again.
    Dialogs::queueForm({QString(), QString(), QString(), "Secret'9"});
    upload->click();
    const QList<Input_Field> shown = Dialogs::lastForm();
    QCOMPARE(QStringList({shown[0].value, shown[1].value, shown[2].value, shown[3].value, QString::number(shown[3].hidden)}),
             QStringList({host, "tally", "live/results", "", "1"}));
    QCOMPARE(Dialogs::lastRecord().text, "Results site sent to ftp://" + host + "/live/results/St Andrew's Games/");
    auto *bar = screen->findChild<QProgressBar *>("ProgressBar1");
    QCOMPARE(bar->value(), bar->maximum());
    const QString site = Data_Dir + "Html/St Andrew's Games/", sent = server.file("live/results/St Andrew's Games/");
    const QStringList files = QDir(site).entryList(QDir::Files);
    QVERIFY(files.size() >= 4 && QDir(sent).entryList(QDir::Files) == files);
    for (const QString &f : files)
        QVERIFY2(Read(sent + f) == Read(site + f), qPrintable(f));
    const QByteArray store = Read(QSettings(QSettings::IniFormat, QSettings::UserScope, "Strathmark", App_Title).fileName());
    QVERIFY2(store.contains("live/results") && !store.contains("Secret") && !store.contains("wrong"), store.constData());
}

QTEST_MAIN(TestSiteUpload)
#include "test_site_upload.moc"
