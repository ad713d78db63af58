#include "settings/frmconfig.h"
#include "support/test_env.h"
#include "core/dialogs.h"
#include "core/globals.h"

#include <QtTest>
#include <QtWidgets>

class TestFrmconfig : public QObject
{
    Q_OBJECT
private slots:
    void controls_write_through();
};

void TestFrmconfig::controls_write_through()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const QString sql = "SELECT auto_save || ',' || check_mode || ',' || locale || ',' || check_dir FROM system_settings";
    auto stored = [&] { return conn.scalar(sql).toString(); };
    auto *form = new frmconfig;
    form->findChild<QCheckBox *>("chk_autosave")->setChecked(true);
    emit form->findChild<QComboBox *>("Combo1")->activated(1);
    emit form->findChild<QComboBox *>("Combo2")->activated(0);
    Dialogs::queueText("/St Andrew's");
    form->findChild<QPushButton *>("CmdBrowse")->click();
    // Written at once, before the form closes; closing writes the folder again.
    QCOMPARE(stored(), QString("1,1,0,/St Andrew's"));
    QVERIFY(Opt_Auto_Save && Opt_Check_Mode == 1 && !Opt_Locale);
    form->close();
    // A cancelled browser leaves the folder empty, and so it is kept.
    form = new frmconfig;
    form->findChild<QPushButton *>("CmdBrowse")->click();
    form->close();
    QCOMPARE(stored(), QString("1,1,0,"));
}

QTEST_MAIN(TestFrmconfig)
#include "test_frmconfig.moc"
