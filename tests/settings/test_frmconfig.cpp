#include "settings/frmconfig.h"
#include "support/test_env.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

class TestFrmconfig : public QObject
{
    Q_OBJECT
private slots:
    void control_writes_through_data();
    void control_writes_through();
};

void TestFrmconfig::control_writes_through_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("value");   // check state, list position or chosen folder
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("stored");
    QTest::newRow("switch") << "chk_autosave" << "1" << "auto_save" << "1";
    QTest::newRow("check mode") << "Combo1" << "1" << "check_mode" << "1";
    QTest::newRow("language") << "Combo2" << "0" << "locale" << "0";
    QTest::newRow("folder with an apostrophe") << "CmdBrowse" << "/srv/St Andrew's/compare" << "check_dir"
                                               << "/srv/St Andrew's/compare";
    QTest::newRow("browser cancelled") << "CmdBrowse" << "" << "check_dir" << "";
}

void TestFrmconfig::control_writes_through()
{
    QFETCH(QString, control);
    QFETCH(QString, value);
    QFETCH(QString, column);
    QFETCH(QString, stored);
    TestDataFolder env;
    Opt_Check_Dir = QStringLiteral("/old");
    Connection conn;
    conn.open();
    auto *form = new frmconfig;
    QObject *w = form->findChild<QObject *>(control);
    QVERIFY(w);
    if (auto *box = qobject_cast<QCheckBox *>(w))
        box->setChecked(value == "1");
    else if (auto *combo = qobject_cast<QComboBox *>(w))
        emit combo->activated(value.toInt());
    else
        Dialogs::queueText(value), qobject_cast<QPushButton *>(w)->click();
    // Written at once, before the form closes.
    QCOMPARE(conn.scalar("SELECT " + column + " FROM system_settings").toString(), stored);
    form->close();
    QCOMPARE(conn.scalar("SELECT " + column + " FROM system_settings").toString(), stored);
    // Closing writes the folder again: the one chosen, or the one it had.
    QCOMPARE(conn.scalar("SELECT check_dir FROM system_settings").toString(), column == "check_dir" ? stored : "/old");
    QCOMPARE(QString::number(column == "auto_save" ? Opt_Auto_Save : column == "locale" ? Opt_Locale : Opt_Check_Mode),
             column == "check_dir" ? QString::number(Opt_Check_Mode) : stored);
}

QTEST_MAIN(TestFrmconfig)
#include "test_frmconfig.moc"
