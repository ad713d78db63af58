#include "support/test_env.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "ui/frmMain.h"
#include "ui/geometry_store.h"
#include "ui/program.h"

#include <QAction>
#include <QFile>
#include <QSettings>
#include <QtTest>

namespace {

const QString COMPACTED = QStringLiteral("Database compacted and backed up!");

int countOf(const QString &text)
{
    return Dialogs::texts().count(text);
}

QSettings *geometryStore()
{
    return new QSettings(QSettings::IniFormat, QSettings::UserScope, "Strathmark", App_Title);
}

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT
private slots:
    void first_run_opens_the_main_window_and_compacts();
    void a_file_that_will_not_open_ends_the_run_data();
    void a_file_that_will_not_open_ends_the_run();
    void options_read_into_globals_data();
    void options_read_into_globals();
    void geometry_keys_absent_and_present();
    void closing_while_minimised_keeps_the_keys();
    void exit_from_the_menu_says_it_twice();
};

void TestStartup::first_run_opens_the_main_window_and_compacts()
{
    TestDataFolder env;
    QVERIFY(!env.exists(DB_BACKUP_FILE));
    {
        Connection c;
        c.open();
        c.execute("UPDATE db_info SET last_update = '2000-01-01 00:00:00'");
    }
    Current_Competition_Id = 5;
    std::unique_ptr<frmMain> main = Start_Program();
    QVERIFY(main);
    QVERIFY(main->isVisible());
    // Compacted twice, the message once; no competition selected.
    QCOMPARE(Dialogs::texts(), QStringList{COMPACTED});
    QCOMPARE(Current_Competition_Id, short(0));
    QVERIFY(env.exists(DB_FILE));
    QVERIFY(env.exists(DB_BACKUP_FILE));
    QVERIFY(!env.exists(DB_TEMP_FILE));
    Connection c;
    c.open();
    QCOMPARE(c.scalar("SELECT db_version FROM db_info").toString(), QString("4.6"));
    QVERIFY(c.scalar("SELECT last_update FROM db_info").toString() > QString("2026"));
    // The backup opens with the key too.
    Connection b;
    b.open(env.file(DB_BACKUP_FILE), Db_Password);
    QCOMPARE(b.scalar("SELECT count(*) FROM dances").toInt(), 17);
    c.close();
    b.close();
    main->close();
}

void TestStartup::a_file_that_will_not_open_ends_the_run_data()
{
    QTest::addColumn<QByteArray>("content");   // empty: no file at all
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("no database") << QByteArray("not a database at all");
}

void TestStartup::a_file_that_will_not_open_ends_the_run()
{
    QFETCH(QByteArray, content);
    TestDataFolder env(false);
    if (!content.isEmpty()) {
        QFile f(env.file(DB_FILE));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(content);
    }
    QVERIFY(!Start_Program());
    QCOMPARE(Dialogs::texts(), QStringList{"Unable to open database " + env.path()});
    QVERIFY(!env.exists(DB_TEMP_FILE));
    QVERIFY(!env.exists(DB_BACKUP_FILE));
    QFile back(env.file(DB_FILE));
    QCOMPARE(back.open(QIODevice::ReadOnly) ? back.readAll() : QByteArray(), content);
}

void TestStartup::options_read_into_globals_data()
{
    QTest::addColumn<QString>("values");
    QTest::addColumn<bool>("flags");
    QTest::addColumn<bool>("locale");
    QTest::addColumn<int>("checkMode");
    QTest::addColumn<QString>("checkDir");
    QTest::newRow("all NULL") << "judges_points=NULL, check_mode=NULL, check_dir=NULL, show_address=NULL, auto_save=NULL, judges_order=NULL, locale=NULL"
                              << false << true << 0 << QString();
    QTest::newRow("all set") << "judges_points=1, check_mode=1, check_dir='/x/Compare', show_address=1, auto_save=1, judges_order=1, locale=0"
                             << true << false << 1 << QString("/x/Compare");
    QTest::newRow("2 is not 1") << "judges_points=2, check_mode=0, check_dir='', show_address=2, auto_save=2, judges_order=2, locale=2"
                                << false << true << 0 << QString();
}

void TestStartup::options_read_into_globals()
{
    QFETCH(QString, values);
    QFETCH(bool, flags);
    QFETCH(bool, locale);
    QFETCH(int, checkMode);
    QFETCH(QString, checkDir);
    TestDataFolder env;
    {
        Connection c;
        c.open();
        c.execute("UPDATE system_settings SET " + values);
    }
    Opt_Judges_Points = Opt_Show_Address = Opt_Auto_Save = Opt_Judges_Order = !flags;
    Opt_Locale = !locale;
    std::unique_ptr<frmMain> main = Start_Program();
    QVERIFY(main);
    QCOMPARE(Opt_Judges_Points, flags);
    QCOMPARE(Opt_Show_Address, flags);
    QCOMPARE(Opt_Auto_Save, flags);
    QCOMPARE(Opt_Judges_Order, flags);
    QCOMPARE(Opt_Locale, locale);
    QCOMPARE(int(Opt_Check_Mode), checkMode);
    QCOMPARE(Opt_Check_Dir, checkDir);
    main->close();
}

void TestStartup::geometry_keys_absent_and_present()
{
    TestDataFolder env;
    {
        std::unique_ptr<frmMain> main = Start_Program();
        QVERIFY(main);
        // A first start fills the screen, with the whole menu in view.
        QVERIFY(main->windowState() & Qt::WindowMaximized);
        main->showNormal();
        main->setGeometry(150, 120, 900, 700);
        main->close();
    }
    std::unique_ptr<QSettings> s(geometryStore());
    s->beginGroup("Settings");
    QCOMPARE(s->value("MainLeft").toString(), QString::number(150 * 15));
    QCOMPARE(s->value("MainWidth").toString(), QString::number(900 * 15));
    std::unique_ptr<frmMain> again = Start_Program();
    QVERIFY(!(again->windowState() & Qt::WindowMaximized));
    QCOMPARE(again->geometry(), QRect(150, 120, 900, 700));
    again->close();
}

void TestStartup::closing_while_minimised_keeps_the_keys()
{
    TestDataFolder env;
    std::unique_ptr<frmMain> main = Start_Program();
    QVERIFY(main);
    main->setGeometry(200, 100, 800, 600);
    main->showMinimized();
    main->close();
    std::unique_ptr<QSettings> s(geometryStore());
    s->beginGroup("Settings");
    QVERIFY(!s->contains("MainLeft"));
    QCOMPARE(countOf(COMPACTED), 2);
    QVERIFY(env.exists(DB_FILE));
    QVERIFY(env.exists(DB_BACKUP_FILE));
}

void TestStartup::exit_from_the_menu_says_it_twice()
{
    TestDataFolder env;
    std::unique_ptr<frmMain> main = Start_Program();
    QVERIFY(main);
    Dialogs::clearRecords();
    QAction *exit = main->findChild<QAction *>("mnuFileExit");
    QVERIFY(exit);
    exit->trigger();
    QVERIFY(!main->isVisible());
    QCOMPARE(Dialogs::texts(), QStringList({COMPACTED, COMPACTED}));
    Connection c;
    c.open();
    QCOMPARE(c.scalar("SELECT count(*) FROM dances").toInt(), 17);
}

QTEST_MAIN(TestStartup)
#include "test_startup.moc"
