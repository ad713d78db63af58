#pragma once
#include <QString>

// What an export file holds, for the closing message of Backup and Restore.
struct File_Contents
{
    QString name, date;   // as record 1 has them
    int competitors = 0, events = 0, marks = 0;   // records 7, 5, and 9 and 10

    // "St Andrew's Games 14/06/2026: 212 competitors, 6 events, 1,480 marks imported."
    // A file with no competition says it held nothing.
    QString summary(const QString &done) const;
};
