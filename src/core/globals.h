#pragma once
#include <QString>

// Program-wide state, written by the screens named beside each and read everywhere.

inline const QString App_Title = QStringLiteral("Strathmark 2017");

inline short Current_Competition_Id = 0;      // 0 means none selected
inline QString Current_Competition_Name;
inline QString Current_Competition_Date;
inline QString Current_Group_Id;              // event code chosen on a tallying screen
inline short Current_Dance_Id = 0;
inline short Current_Result_No = 0;           // never assigned: stays 0

inline QString Data_Dir;                      // always ends in '/'
inline QString Db_Password;

inline bool Opt_Judges_Points = false;
inline bool Opt_Show_Address = false;
inline bool Opt_Auto_Save = false;
inline bool Opt_Judges_Order = false;
inline short Opt_Check_Mode = 0;
inline QString Opt_Check_Dir;
inline bool Opt_Locale = true;                // NULL in the file reads as set
inline QString Last_Compare_Dir;
inline QString Check_Text_1;                  // this computer's side of a failed check
inline QString Check_Text_2;                  // the remote side

// The database password; never written to any log.
inline const char *const DB_PASSWORD_CONSTANT = "r33lm4st3r";

// File names inside Data_Dir. Linux is case-sensitive: use only these.
inline const QString DB_FILE = QStringLiteral("tallier.mdb");
inline const QString DB_TEMP_FILE = QStringLiteral("TallierTemp.mdb");
inline const QString DB_BACKUP_FILE = QStringLiteral("Tallier.bak");
