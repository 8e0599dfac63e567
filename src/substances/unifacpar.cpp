#include "substances/unifacpar.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>

#include "substances/unifactables.h"

namespace peq {

namespace {

constexpr const char* kEol = "\r\n";

using Row = std::vector<std::string>;

// Rows of a tab-separated text without its header row; blank lines are skipped.
std::vector<Row> ReadTsv(std::string_view text, std::size_t columns, const char* what) {
  std::vector<Row> rows;
  bool head = true;
  std::size_t p = 0;
  while (p < text.size()) {
    std::size_t e = text.find('\n', p);
    if (e == std::string_view::npos) e = text.size();
    std::string_view line = text.substr(p, e - p);
    p = e + 1;
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (line.empty()) continue;
    if (head) {
      head = false;
      continue;
    }
    Row r;
    std::size_t a = 0;
    for (;;) {
      const std::size_t t = line.find('\t', a);
      r.emplace_back(line.substr(a, t == std::string_view::npos ? std::string_view::npos : t - a));
      if (t == std::string_view::npos) break;
      a = t + 1;
    }
    if (r.size() != columns)
      throw UnifacParError(std::string(what) + ": a row has " + std::to_string(r.size()) +
                           " columns instead of " + std::to_string(columns));
    rows.push_back(std::move(r));
  }
  return rows;
}

int WholeNumber(const std::string& s, const char* what) {
  int v = 0;
  const auto res = std::from_chars(s.data(), s.data() + s.size(), v);
  if (res.ec != std::errc() || res.ptr != s.data() + s.size())
    throw UnifacParError(std::string(what) + ": not a whole number: \"" + s + "\"");
  return v;
}

// A real of the table, kept as its text; it must read as a number.
const std::string& RealText(const std::string& s, const char* what) {
  char* end = nullptr;
  const std::string t = s;
  std::strtod(t.c_str(), &end);
  if (s.empty() || end != t.c_str() + t.size() || s.find_first_of(" ,") != std::string::npos)
    throw UnifacParError(std::string(what) + ": not a number: \"" + s + "\"");
  return s;
}

std::string Pad(const std::string& s, std::size_t width, bool right, const char* what) {
  if (s.size() > width)
    throw UnifacParError(std::string(what) + ": \"" + s + "\" is wider than " +
                         std::to_string(width) + " columns");
  const std::string fill(width - s.size(), ' ');
  return right ? fill + s : s + fill;
}

struct Pair {
  int i, j;
  std::vector<std::string> values;  // the reals of the row in file order
};

struct Sub {
  int sub, main;
  std::string name, R, Q;
};

std::string Make(std::string_view interactionsTsv, std::string_view subgroupsTsv,
                 std::size_t realsPerPair, int mainMax, int subMax, std::size_t rWidth,
                 const char* model, std::vector<std::string>& leftOut) {
  leftOut.clear();
  const std::string ctx = std::string(model) + " interactions";
  std::vector<Pair> pairs;
  for (const Row& r : ReadTsv(interactionsTsv, 2 + realsPerPair, ctx.c_str())) {
    Pair p{WholeNumber(r[0], ctx.c_str()), WholeNumber(r[1], ctx.c_str()), {}};
    for (std::size_t k = 2; k < r.size(); ++k) p.values.push_back(RealText(r[k], ctx.c_str()));
    if (p.i < 1 || p.i > mainMax || p.j < 1 || p.j > mainMax) {
      leftOut.push_back(std::string(model) + ": interaction pair " + std::to_string(p.i) + "-" +
                        std::to_string(p.j) + " (main group outside 1.." +
                        std::to_string(mainMax) + ")");
      continue;
    }
    pairs.push_back(std::move(p));
  }
  std::stable_sort(pairs.begin(), pairs.end(), [](const Pair& a, const Pair& b) {
    return a.i != b.i ? a.i < b.i : a.j < b.j;
  });

  const std::string ctxs = std::string(model) + " subgroups";
  std::vector<Sub> subs;
  for (const Row& r : ReadTsv(subgroupsTsv, 5, ctxs.c_str())) {
    Sub s{WholeNumber(r[0], ctxs.c_str()), WholeNumber(r[4], ctxs.c_str()), r[1],
          RealText(r[2], ctxs.c_str()), RealText(r[3], ctxs.c_str())};
    if (s.sub < 0 || s.sub > subMax || s.main < 1 || s.main > mainMax) {
      leftOut.push_back(std::string(model) + ": subgroup " + std::to_string(s.sub) + " " +
                        s.name + " of main group " + std::to_string(s.main) +
                        " (subgroup outside 0.." + std::to_string(subMax) +
                        " or main group outside 1.." + std::to_string(mainMax) + ")");
      continue;
    }
    subs.push_back(std::move(s));
  }
  std::stable_sort(subs.begin(), subs.end(),
                   [](const Sub& a, const Sub& b) { return a.sub < b.sub; });

  std::string out;
  out.append(std::to_string(pairs.size())).append(kEol);
  for (const Pair& p : pairs) {
    out.append(Pad(std::to_string(p.i), 3, true, ctx.c_str()));
    out.push_back(',');
    out.append(Pad(std::to_string(p.j), 4, true, ctx.c_str()));
    for (const std::string& v : p.values) {
      out.push_back(',');
      out.append(Pad(v, 12, true, ctx.c_str()));
    }
    out.append(kEol);
  }
  // Subgroup lines: 3-5 number, 7-18 name, R from column 19, Q two columns behind R, main group
  // one column behind Q.
  out.append(std::to_string(subs.size())).append(kEol);
  for (const Sub& s : subs) {
    out.append("  ").append(Pad(std::to_string(s.sub), 3, true, ctxs.c_str())).push_back(' ');
    out.append(Pad(s.name, 12, false, ctxs.c_str()));
    out.append(Pad(s.R, rWidth, true, ctxs.c_str())).append("  ");
    out.append(Pad(s.Q, 7, true, ctxs.c_str())).push_back(' ');
    out.append(Pad(std::to_string(s.main), 3, true, ctxs.c_str())).append(kEol);
  }
  return out;
}

}  // namespace

std::string MakeModUnifPar(std::string_view interactionsTsv, std::string_view subgroupsTsv,
                           std::vector<std::string>& leftOut) {
  return Make(interactionsTsv, subgroupsTsv, 6, kModMainMax, kModSubMax, 8, "Mod. UNIFAC",
              leftOut);
}

std::string MakeOUnifPar(std::string_view interactionsTsv, std::string_view subgroupsTsv,
                         std::vector<std::string>& leftOut) {
  return Make(interactionsTsv, subgroupsTsv, 2, kOUnifMainMax, kOUnifSubMax, 7, "UNIFAC", leftOut);
}

}  // namespace peq
