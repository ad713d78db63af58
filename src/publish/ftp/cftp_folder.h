#pragma once
#include <QString>
#include <functional>

class cFTP;

// Sends a local folder and everything under it to a remote folder on an open
// connection, making the remote folders that are missing. Progress counts the
// bytes of all files together. Gives false at the first failure, with the
// client's error text.
bool Upload_Folder(cFTP &ftp, const QString &localFolder, const QString &remoteFolder,
                   const std::function<void(qint64 done, qint64 total)> &progress = {});
