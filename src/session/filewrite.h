// Writing a whole file so that a failed write never destroys the old one.
#pragma once

#include <string>
#include <string_view>

namespace peq {

// The system's text for a failed file operation (errno value).
std::string SystemText(int err);

// Writes bytes to a temporary file beside the target and renames it over the target. False with
// the system's text in err when anything fails; the old file then stays as it was.
bool WriteReplacing(const std::string& fileName, std::string_view bytes, std::string& err);

}  // namespace peq
