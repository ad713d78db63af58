// The export file reader against a real database: no crash, no sanitizer report, no hang.
#include "fuzz_env.h"
#include "exchange/import_file.h"

#include "core/codec.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Connection &conn = Fuzz_Connection();
    const bool yes = size > 0 && (data[0] & 1);
    const QString text = Decode_Text(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    Import_Hooks hooks;
    hooks.confirm = [yes](const QString &) { return yes; };
    Current_Competition_Id = 0;
    In_Rolled_Back(conn, [&] { Import_Text(conn, text, hooks); });
    return 0;
}
