// The FTP client against a real server on 127.0.0.1.
#include "ftp_test_server.h"
#include "publish/ftp/cftp.h"
#include "publish/ftp/cftp_folder.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTcpServer>
#include <QtTest>

namespace {
const QString User = QStringLiteral("tallier@games.example");
const QString Password = QStringLiteral("reel2026");

QByteArray Read(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

void Write(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

QByteArray Random_Bytes(int size)
{
    QByteArray b(size, 0);
    for (char &c : b)
        c = static_cast<char>(QRandomGenerator::global()->bounded(256));
    return b;
}
} // namespace

class TestFtpClient : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void blocks_and_progress_data();
    void blocks_and_progress();
    void names_folders_rename_delete();
    void error_texts_data();
    void error_texts();
    void ascii_and_binary_types();
    void whole_folder_upload();

private:
    bool connect(bool passive = true);
    QString local(const QString &name) const { return m_local.filePath(name); }
    std::unique_ptr<Ftp_Test_Server> m_server;
    std::unique_ptr<cFTP> m_ftp;
    QTemporaryDir m_local;
    QStringList m_progress;
};

void TestFtpClient::init()
{
    m_server = std::make_unique<Ftp_Test_Server>(User, Password);
    QVERIFY(m_server->started());
    m_ftp = std::make_unique<cFTP>();
    m_ftp->SetPort(m_server->ftpPort());
    m_progress.clear();
    QObject::connect(m_ftp.get(), &cFTP::Progress, [this](qint32 done, qint32 total) {
        m_progress << QStringLiteral("%1/%2").arg(done).arg(total);
    });
}

void TestFtpClient::cleanup()
{
    m_ftp.reset();
    m_server.reset();
}

bool TestFtpClient::connect(bool passive)
{
    passive ? m_ftp->SetModePassive() : m_ftp->SetModeActive();
    m_ftp->SetTransferBinary();
    return m_ftp->OpenConnection(QStringLiteral("127.0.0.1"), User, Password);
}

void TestFtpClient::blocks_and_progress_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("passive");
    QTest::addColumn<QString>("upload");
    QTest::addColumn<QString>("download");   // empty: not downloaded
    for (bool passive : {false, true}) {
        const char *mode = passive ? "passive" : "active";
        QTest::addRow("0 %s", mode) << 0 << passive << "0/0" << "";
        QTest::addRow("254 %s", mode) << 254 << passive << "254/254" << "254/254";
        QTest::addRow("255 %s", mode) << 255 << passive << "255/255 255/255" << "255/255 255/255";
        QTest::addRow("510 %s", mode) << 510 << passive << "255/510 510/510 510/510" << "255/510 510/510 510/510";
        QTest::addRow("511 %s", mode) << 511 << passive << "255/511 510/511 511/511" << "255/511 510/511 511/511";
    }
}

void TestFtpClient::blocks_and_progress()
{
    QFETCH(int, size);
    QFETCH(bool, passive);
    QFETCH(QString, upload);
    QFETCH(QString, download);
    QVERIFY2(connect(passive), qPrintable(m_ftp->GetLastErrorMessage()));
    const QByteArray data = Random_Bytes(size);
    Write(local("up.bin"), data);
    QVERIFY2(m_ftp->FTPUploadFile(local("up.bin"), QStringLiteral("/up.bin")), qPrintable(m_ftp->GetLastErrorMessage()));
    QCOMPARE(m_progress.join(' '), upload);
    QCOMPARE(Read(m_server->file("up.bin")), data);

    // The target is written from its start and never cut: an older, longer
    // file keeps its tail.
    m_progress.clear();
    const QByteArray old(600, 'x');
    Write(local("down.bin"), old);
    QCOMPARE(m_ftp->FTPDownloadFile(local("down.bin"), QStringLiteral("up.bin")), !download.isEmpty());
    QCOMPARE(m_progress.join(' '), download);
    QCOMPARE(Read(local("down.bin")), download.isEmpty() ? old : data + old.mid(size));

    const QString log = m_server->log().join(' ');
    if (size > 0) {   // nothing to send opens no data connection
        QCOMPARE(log.contains("EPSV") || log.contains("PASV"), passive);
        QCOMPARE(log.contains("EPRT") || log.contains("PORT"), !passive);
    }
}

void TestFtpClient::names_folders_rename_delete()
{
    QVERIFY(connect());
    Write(local("entries.csv"), QByteArray(300, 'e'));
    QVERIFY(m_ftp->SimpleFTPPutFile(local("entries.csv"), QStringLiteral("new entries.csv")));
    QCOMPARE(m_ftp->GetFTPFileSize(QStringLiteral("new entries.csv")), 300);
    QCOMPARE(m_ftp->GetFTPFileSize(QStringLiteral("/new entries.csv")), 300);
    QCOMPARE(m_ftp->GetFTPFileSize(QStringLiteral("other entries.csv")), cFTP::Not_Found);

    QVERIFY(m_ftp->RenameFTPFile(QStringLiteral("new entries.csv"), QStringLiteral("St Andrew's.csv")));
    QVERIFY(!QFile::exists(m_server->file("new entries.csv")));
    QCOMPARE(Read(m_server->file("St Andrew's.csv")), QByteArray(300, 'e'));
    QVERIFY(m_ftp->SimpleFTPGetFile(local("back.csv"), QStringLiteral("St Andrew's.csv")));
    QCOMPARE(Read(local("back.csv")), QByteArray(300, 'e'));

    QCOMPARE(m_ftp->GetFTPDirectory(), QStringLiteral("/"));
    QVERIFY(m_ftp->CreateFTPDirectory(QStringLiteral("Highland Games")));
    QVERIFY(m_ftp->SetFTPDirectory(QStringLiteral("Highland Games")));
    QCOMPARE(m_ftp->GetFTPDirectory(), QStringLiteral("/Highland Games"));
    QVERIFY(m_ftp->FTPUploadFile(local("entries.csv"), QStringLiteral("in folder.csv")));
    QCOMPARE(Read(m_server->file("Highland Games/in folder.csv")), QByteArray(300, 'e'));
    QVERIFY(m_ftp->SetFTPDirectory(QStringLiteral("/")));
    QVERIFY(!m_ftp->RemoveFTPDirectory(QStringLiteral("Highland Games")));   // not empty
    QVERIFY(m_ftp->DeleteFTPFile(QStringLiteral("Highland Games/in folder.csv")));
    QVERIFY(m_ftp->RemoveFTPDirectory(QStringLiteral("Highland Games")));
    QVERIFY(!QFileInfo::exists(m_server->file("Highland Games")));
    QVERIFY(m_ftp->DeleteFTPFile(QStringLiteral("St Andrew's.csv")));
    QCOMPARE(QDir(m_server->root()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList());
}

void TestFtpClient::error_texts_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("text");   // a pattern for the whole text
    QTest::newRow("wrong password") << "login:wrong" << "530 Authentication failed\\.";
    QTest::newRow("nobody listening") << "login:closed"
                                      << "InternetConnect error code: 7 Message: Failed to connect to 127\\.0\\.0\\.1 "
                                         "port \\d+ after \\d+ ms: Couldn't connect to server";
    QTest::newRow("missing file, whole get") << "get" << "550 /9\\.csv is not retrievable\\.";
    QTest::newRow("missing file, delete") << "delete" << "550 No such file or directory\\.";
    QTest::newRow("missing folder") << "cd" << "550 No such file or directory\\.";
    QTest::newRow("missing file, block get keeps the text before") << "blockget" << "before";
}

void TestFtpClient::error_texts()
{
    QFETCH(QString, action);
    QFETCH(QString, text);
    bool ok = true;
    if (action.startsWith("login")) {
        if (action == "login:closed") {
            QTcpServer probe;
            QVERIFY(probe.listen(QHostAddress::LocalHost));
            m_ftp->SetPort(probe.serverPort());
        }
        ok = m_ftp->OpenConnection(QStringLiteral("127.0.0.1"), User, QStringLiteral("wrong"));
    } else {
        QVERIFY(connect());
        QVERIFY(!m_ftp->SetFTPDirectory(QStringLiteral("before")));
        if (action == "get")
            ok = m_ftp->SimpleFTPGetFile(local("x.csv"), QStringLiteral("9.csv"));
        else if (action == "delete")
            ok = m_ftp->DeleteFTPFile(QStringLiteral("9.csv"));
        else if (action == "cd")
            ok = m_ftp->SetFTPDirectory(QStringLiteral("/No Such Folder"));
        else
            ok = m_ftp->FTPDownloadFile(local("x.csv"), QStringLiteral("9.csv"));
        if (text == "before")
            text = QRegularExpression::escape(m_ftp->GetLastErrorMessage());
    }
    QVERIFY(!ok);
    QVERIFY2(QRegularExpression('^' + text + '$').match(m_ftp->GetLastErrorMessage()).hasMatch(),
             qPrintable(m_ftp->GetLastErrorMessage()));
}

void TestFtpClient::ascii_and_binary_types()
{
    QVERIFY(connect());
    Write(m_server->file("lines.txt"), "Reel\nFling\n");
    m_ftp->SetTransferASCII();
    QVERIFY(m_ftp->SimpleFTPGetFile(local("lines.txt"), QStringLiteral("lines.txt")));
    m_ftp->SetTransferBinary();
    QVERIFY(m_ftp->SimpleFTPPutFile(local("lines.txt"), QStringLiteral("copy.txt")));
    QCOMPARE(Read(m_server->file("copy.txt")), QByteArray("Reel\nFling\n"));
    const QStringList log = m_server->log();
    const int retr = log.indexOf("RETR lines.txt"), stor = log.indexOf("STOR copy.txt");
    QVERIFY(retr > 0 && stor > retr);
    QCOMPARE(log.mid(0, retr).filter("TYPE").last(), "TYPE A");
    QCOMPARE(log.mid(retr, stor - retr).filter("TYPE").last(), "TYPE I");
}

void TestFtpClient::whole_folder_upload()
{
    QVERIFY(connect());
    QDir(m_local.path()).mkpath("site/events");
    Write(local("site/index.htm"), QByteArray(700, 'i'));
    Write(local("site/events/A 1.htm"), QByteArray(40, 'a'));
    QList<qint64> seen;
    QVERIFY(Upload_Folder(*m_ftp, local("site"), QStringLiteral("/results"),
                          [&](qint64 done, qint64 total) { seen << done << total; }));
    QCOMPARE(Read(m_server->file("results/index.htm")), QByteArray(700, 'i'));
    QCOMPARE(Read(m_server->file("results/events/A 1.htm")), QByteArray(40, 'a'));
    QCOMPARE(seen.mid(seen.size() - 2), (QList<qint64>{740, 740}));
    QVERIFY(Upload_Folder(*m_ftp, local("site"), QStringLiteral("/results")));   // again, over itself
}

QTEST_GUILESS_MAIN(TestFtpClient)
#include "test_ftp_client.moc"
