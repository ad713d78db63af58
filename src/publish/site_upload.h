#pragma once
#include <QString>
#include <functional>

// Where the results site goes: remembered in the per-user settings store
// (section "Upload", keys Server, User, Folder). The password never is.
struct Upload_Target
{
    QString server;     // a host name, or "host:port"
    QString user;
    QString folder;     // the remote folder; the root when empty
};

Upload_Target Load_Upload_Target();
void Save_Upload_Target(const Upload_Target &target);

// The remote folder that receives a site folder: the competition's folder
// under the target's folder.
QString Remote_Site_Folder(const Upload_Target &target, const QString &siteFolder);

// Sends a written site folder by FTP (passive, binary, so the pages arrive byte
// for byte). Gives an empty text on success, else what was being done followed
// by the client's error text. progress gets bytes done and bytes in all.
QString Upload_Site(const Upload_Target &target, const QString &password, const QString &siteFolder,
                    const std::function<void(qint64 done, qint64 total)> &progress = {});
