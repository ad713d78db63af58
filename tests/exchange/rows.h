#pragma once
#include "core/db.h"

#include <QStringList>

// The rows of a query as "a|b;c|d", NULL shown as "~".
inline QString Rows(Connection &conn, const QString &sql)
{
    QStringList rows;
    for (RowSet rs = conn.query(sql); !rs.eof(); rs.next()) {
        QStringList fields;
        for (int i = 0; i < rs.fieldCount(); ++i)
            fields << (rs.value(i).isNull() ? QStringLiteral("~") : rs.text(rs.fieldName(i)));
        rows << fields.join(QLatin1Char('|'));
    }
    return rows.join(QLatin1Char(';'));
}
