#pragma once
#include <QString>

class Connection;

// The data folder: $STRATHMARK_DATA_DIR when set, else the machine's
// application data folder + Strathmark/Strathmark/. Always ends in '/'.
// Made when absent.
QString Find_Data_Dir();

// A sub-folder of the data folder (Compare, Html, Registrations, Backup),
// made on demand. A folder that exists in another case is the same folder.
QString Data_Sub_Dir(const QString &name);

// Opens conn on tallier.mdb. False when the file cannot be opened for any
// reason (missing, empty, wrong key, not this program's database); the file
// is never created.
bool Open_Database(Connection &conn);

// A data folder copied from an older installation may hold the database as
// Tallier.mdb or TALLIER.MDB. With tallier.mdb missing and exactly one file
// of that name in another case, it is renamed to tallier.mdb. False when that
// rename failed.
bool Adopt_Database_Name();

// What keeps the program from writing its data, found before it writes.
enum class Folder_Problem { None, Read_Only_File, Read_Only_Folder, Disk_Full };
// The start writes the file and keeps a compacted copy and a backup beside
// it: the file and the folder must be writable, and the disk must have room
// for one more copy.
Folder_Problem Check_Data_Folder();
// The box for a problem: what is wrong, in which folder, what to do.
QString Folder_Problem_Text(Folder_Problem problem);

// Reads the options of system_settings into the globals.
void Read_Options(Connection &conn);

// "UPDATE db_info SET last_update=now()", on conn or on a fresh connection.
void Stamp_Database(Connection &conn);
void Stamp_Database();

// The schema version of the file.
QString Read_Db_Version(Connection &conn);
// Brings an older file up to the present version. A file at the present
// version, or above it, is left as it stands.
void Upgrade_Database(Connection &conn);

// Compaction: the file is copied in compact form to TallierTemp.mdb, the old
// Tallier.bak goes, tallier.mdb becomes Tallier.bak and the copy becomes
// tallier.mdb. At every moment one complete copy lies on disk. All screens'
// connections must be closed. Faults are AppError.
void Compact_Database();
// The steps in their order, for the routine above and for tests.
void Compact_Export();        // tallier.mdb -> TallierTemp.mdb
void Compact_Drop_Backup();   // Tallier.bak deleted when present
void Compact_Keep_Backup();   // tallier.mdb -> Tallier.bak
void Compact_Install_Copy();  // TallierTemp.mdb -> tallier.mdb

// A compaction stopped between keeping the backup and installing the copy
// leaves no tallier.mdb but a complete TallierTemp.mdb: install it.
// A stale TallierTemp.mdb beside a good tallier.mdb is removed.
void Finish_Interrupted_Compaction();
