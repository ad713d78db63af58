#pragma once

// Addresses that belong to the distribution, not to a competition. Each is set when
// the program is built (CMake cache variables of the same name in src/core/CMakeLists.txt);
// the defaults are placeholders under .example until the real ones are known.
namespace Contacts {

// Named in the failure boxes that ask the operator to send an export for help.
inline constexpr const char *Support_Email = STRATHMARK_SUPPORT_EMAIL;

// The publisher of the program, named on the SOBHD return and under every results page.
inline constexpr const char *Publisher_Name = STRATHMARK_PUBLISHER_NAME;
inline constexpr const char *Publisher_Url = STRATHMARK_PUBLISHER_URL;
inline constexpr const char *Publisher_Notice = STRATHMARK_PUBLISHER_NOTICE;
// The rights notice and warning against copying under every hosted results page.
inline constexpr const char *Publisher_Rights = STRATHMARK_PUBLISHER_RIGHTS;

// The description that results pages give search engines.
inline constexpr const char *Meta_Description = STRATHMARK_META_DESCRIPTION;

// The online entries service: one web host for the request and the FTP account.
inline constexpr const char *Entries_Host = STRATHMARK_ENTRIES_HOST;
inline constexpr const char *Entries_Ftp_User = STRATHMARK_ENTRIES_FTP_USER;
inline constexpr const char *Entries_Ftp_Password = "morlachet";

} // namespace Contacts
