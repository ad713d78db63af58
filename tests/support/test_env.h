#pragma once
#include <QString>
#include <QTemporaryDir>

// A fresh temporary data folder for one test, never the user's: the prepared
// empty database is copied in (unless asked not to), the globals point at it,
// the settings store lives inside it, pauses take no time and every box is
// scripted. The folder goes when the object does.
class TestDataFolder
{
public:
    explicit TestDataFolder(bool withDatabase = true);
    ~TestDataFolder();

    QString path() const;                       // ends in '/'
    QString file(const QString &name) const;    // path() + name
    bool exists(const QString &name) const;

private:
    QTemporaryDir m_dir;
};

// The prepared empty database file made by the build.
QString Prepared_Database_Path();
