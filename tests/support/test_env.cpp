#include "test_env.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "core/pause.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

QString Prepared_Database_Path()
{
    return QString::fromUtf8(STRATHMARK_PREPARED_DB);
}

TestDataFolder::TestDataFolder(bool withDatabase)
{
    const QString dir = path();
    qputenv("STRATHMARK_DATA_DIR", dir.toUtf8());
    qputenv("XDG_CONFIG_HOME", (dir + QStringLiteral("config")).toUtf8());
    qputenv("XDG_DATA_HOME", (dir + QStringLiteral("data")).toUtf8());
    // The settings store reads its place once per process: point it here for each test.
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, dir + QStringLiteral("config"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dir + QStringLiteral("config"));
    if (withDatabase) {
        QFile::copy(Prepared_Database_Path(), dir + DB_FILE);
        QFile(dir + DB_FILE).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    Data_Dir = dir;
    Db_Password = QString::fromLatin1(DB_PASSWORD_CONSTANT);
    Current_Competition_Id = 0;
    Current_Competition_Name.clear();
    Current_Competition_Date.clear();
    Current_Group_Id.clear();
    Current_Dance_Id = 0;
    Opt_Judges_Points = Opt_Show_Address = Opt_Auto_Save = Opt_Judges_Order = false;
    Opt_Check_Mode = 0;
    Opt_Check_Dir.clear();
    Opt_Locale = true;
    Last_Compare_Dir.clear();
    Set_Pause_Scale(0.0);
    Dialogs::setScripted(true);
}

TestDataFolder::~TestDataFolder()
{
    Dialogs::setScripted(true);
}

QString TestDataFolder::path() const
{
    return QDir(m_dir.path()).absolutePath() + QLatin1Char('/');
}

QString TestDataFolder::file(const QString &name) const
{
    return path() + name;
}

bool TestDataFolder::exists(const QString &name) const
{
    return QFileInfo::exists(file(name));
}
