#include "session/filewrite.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace peq {

namespace fs = std::filesystem;

std::string SystemText(int err) {
  if (err == ENOENT) return "File not found";
  return std::strerror(err);
}

bool WriteReplacing(const std::string& fileName, std::string_view bytes, std::string& err) {
  const fs::path target(fileName);
  fs::path tmp = target;
  tmp += ".tmp~";
  {
    errno = 0;
    std::ofstream out(tmp, std::ios::binary | std::ios::trunc);
    if (!out) {
      err = SystemText(errno ? errno : EACCES);
      return false;
    }
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.flush();
    if (!out) {
      err = "Disk full";
      out.close();
      std::error_code ec;
      fs::remove(tmp, ec);
      return false;
    }
  }
  std::error_code ec;
  fs::rename(tmp, target, ec);
  if (ec) {
    err = ec.message();
    fs::remove(tmp, ec);
    return false;
  }
  return true;
}

}  // namespace peq
