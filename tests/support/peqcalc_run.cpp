#include "support/peqcalc_run.h"

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include "support/fuzzy.h"

namespace peqtest {

namespace {

std::string Quote(const std::string& s) {
  std::string q = "'";
  for (char c : s) {
    if (c == '\'')
      q += "'\\''";
    else
      q += c;
  }
  return q + "'";
}

}  // namespace

PeqcalcRun RunPeqcalc(const std::vector<std::string>& args) {
  namespace fs = std::filesystem;
  static std::atomic<int> counter{0};
  const std::string errFile =
      (fs::temp_directory_path() /
       ("peqcalc_err_" + std::to_string(::getpid()) + "_" + std::to_string(counter++)))
          .string();
  std::string cmd = Quote(BinaryDir() + "/peqcalc");
  for (const std::string& a : args) cmd.append(" ").append(Quote(a));
  cmd.append(" 2>").append(Quote(errFile));
  PeqcalcRun r;
  FILE* p = ::popen(cmd.c_str(), "r");
  if (!p) return r;
  char buf[4096];
  std::size_t n;
  while ((n = std::fread(buf, 1, sizeof buf, p)) > 0) r.out.append(buf, n);
  const int status = ::pclose(p);
  r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  std::ifstream f(errFile, std::ios::binary);
  std::stringstream ss;
  ss << f.rdbuf();
  r.err = ss.str();
  std::error_code ec;
  fs::remove(errFile, ec);
  return r;
}

std::vector<double> JsonNumbers(const std::string& json, const std::string& key) {
  std::vector<double> v;
  std::size_t p = json.find("\"" + key + "\": [");
  if (p == std::string::npos) return v;
  p = json.find('[', p) + 1;
  const std::size_t e = json.find(']', p);
  const std::string body = json.substr(p, e - p);
  const char* c = body.c_str();
  char* end = nullptr;
  for (;;) {
    const double d = std::strtod(c, &end);
    if (end == c) break;
    v.push_back(d);
    c = end;
    while (*c == ',' || *c == ' ') ++c;
  }
  return v;
}

}  // namespace peqtest
