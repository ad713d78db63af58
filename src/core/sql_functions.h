#pragma once

struct sqlite3;

// ucase, lcase, now and iif, which the statements of every screen use.
void Register_Sql_Functions(sqlite3 *db);
