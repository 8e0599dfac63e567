#include "session/anycase.h"

#include <string>
#include <system_error>

#include "session/codepage.h"

namespace peq {

namespace fs = std::filesystem;

fs::path FindFileAnyCase(const fs::path& p) {
  std::error_code ec;
  if (fs::exists(p, ec)) return p;
  const fs::path dir = p.parent_path();
  const std::string want = ToUpper(p.filename().string());
  for (fs::directory_iterator it(dir.empty() ? fs::path(".") : dir, ec), end; !ec && it != end;
       it.increment(ec)) {
    const fs::path name = it->path().filename();
    if (ToUpper(name.string()) == want) return dir / name;
  }
  return p;
}

}  // namespace peq
