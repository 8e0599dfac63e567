// mkbase: builds the bundled default database and the k(ij) files from the curated tables.
//
//   mkbase SHARED_DATA_DIR OUT_DIR
//
// reads  SHARED_DATA_DIR/pure/{substances,antoine,wagner,dippr101,dippr105,dippr106}.tsv
//        SHARED_DATA_DIR/unifac/{groups,uniquac_rq}.tsv
//        SHARED_DATA_DIR/binary/{kij_pr,kij_srk}.tsv
//        tools/supplement/dippr105.tsv (rows the curated density table lacks)
// writes OUT_DIR/PEQBASE.Q07, OUT_DIR/KIJ_PR.DAT, OUT_DIR/KIJ_RKS.DAT
//
// The output depends on the tables only (no time stamps, fixed order), so running it again on
// the same tables gives the same bytes. data/README.md describes the mapping of each table.
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "session/codepage.h"
#include "substances/kij.h"
#include "substances/q07.h"

namespace mkbase {

namespace fs = std::filesystem;

// A true zero of a property is stored as 1E-37, since 0 means "empty" in the database.
constexpr float kTrueZero = 1E-37f;
constexpr double kLn10 = 2.302585092994046;
constexpr double kLn1000 = 6.907755278982137;  // ln 1000: Pa -> kPa inside a logarithm

// Rows the curated tables lack (with their sources), kept beside this file.
const fs::path kSupplementDir = fs::path(__FILE__).parent_path() / "supplement";

struct Failure {
  std::string what;
};

// A tab-separated table with one header row.
class Table {
 public:
  explicit Table(const fs::path& file) : file_(file.string()) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw Failure{"cannot read " + file_};
    std::string line;
    bool head = true;
    while (std::getline(in, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line.empty()) continue;
      std::vector<std::string> cells;
      std::size_t a = 0;
      for (;;) {
        const std::size_t t = line.find('\t', a);
        cells.push_back(line.substr(a, t == std::string::npos ? std::string::npos : t - a));
        if (t == std::string::npos) break;
        a = t + 1;
      }
      if (head) {
        for (std::size_t k = 0; k < cells.size(); ++k) cols_[cells[k]] = k;
        head = false;
      } else {
        rows_.push_back(std::move(cells));
      }
    }
  }
  std::size_t Rows() const { return rows_.size(); }
  const std::string& Text(std::size_t row, const std::string& col) const {
    static const std::string none;
    const auto c = cols_.find(col);
    if (c == cols_.end()) throw Failure{file_ + ": no column " + col};
    const auto& cells = rows_[row];
    return c->second < cells.size() ? cells[c->second] : none;
  }
  bool Has(std::size_t row, const std::string& col) const { return !Text(row, col).empty(); }
  double Num(std::size_t row, const std::string& col) const {
    const std::string& t = Text(row, col);
    double v = 0;
    const char* first = t.data();
    if (!t.empty() && t[0] == '+') ++first;
    const auto res = std::from_chars(first, t.data() + t.size(), v);
    if (t.empty() || res.ec != std::errc() || res.ptr != t.data() + t.size() || !std::isfinite(v))
      throw Failure{file_ + ": row " + std::to_string(row + 2) + ", column " + col +
                    ": not a number: \"" + t + "\""};
    return v;
  }
  // Row of each CAS-RN (tables with one row per substance).
  std::map<std::string, std::size_t> ByCas() const {
    std::map<std::string, std::size_t> m;
    for (std::size_t r = 0; r < rows_.size(); ++r) {
      if (!m.emplace(Text(r, "cas"), r).second)
        throw Failure{file_ + ": CAS-RN " + Text(r, "cas") + " twice"};
    }
    return m;
  }

 private:
  std::string file_;
  std::map<std::string, std::size_t> cols_;
  std::vector<std::vector<std::string>> rows_;
};

// Increment field from an assignment "2*1 1*2" (count*subgroup): "02001,01002,00000,...".
std::string IncrementField(const std::string& assignment, const std::string& what) {
  std::istringstream in(assignment);
  std::string item;
  std::vector<int> values;
  while (in >> item) {
    const std::size_t star = item.find('*');
    int count = 0, sub = 0;
    if (star == std::string::npos ||
        std::from_chars(item.data(), item.data() + star, count).ec != std::errc() ||
        std::from_chars(item.data() + star + 1, item.data() + item.size(), sub).ec !=
            std::errc())
      throw Failure{what + ": cannot read group assignment \"" + assignment + "\""};
    if (count < 1 || count > 99 || sub < 1 || sub > 999)
      throw Failure{what + ": group " + item + " does not fit a 5-digit field"};
    values.push_back(count * 1000 + sub);
  }
  if (values.empty() || values.size() > 7)
    throw Failure{what + ": " + std::to_string(values.size()) + " groups (1 to 7 fit)"};
  values.resize(7, 0);
  std::string out;
  char buf[8];
  for (std::size_t k = 0; k < values.size(); ++k) {
    std::snprintf(buf, sizeof buf, "%05d", values[k]);
    if (k) out += ',';
    out += buf;
  }
  return out;
}

const char* const kNoIncrements = "00000,00000,00000,00000,00000,00000,00000";

float F(double v) { return static_cast<float>(v); }
// A property value: an exact zero becomes the stored true zero.
float Prop(double v) { return v == 0.0 ? kTrueZero : static_cast<float>(v); }

void CheckWidth(const std::string& text, std::size_t width, const std::string& what,
                std::ostream& log) {
  if (peq::Utf8Length(text) > width)
    log << "warning: " << what << " \"" << text << "\" cut to " << width << " characters\n";
}

// Vapour pressure in kPa at T by the equation the program prefers for the record (FROST, then
// WAGNER, then ANTOINE), from the stored 32-bit coefficients; 0 when the record has none.
double PreferredP0(const peq::Q07Record& q, double T) {
  const auto V = [&q](int k) { return static_cast<double>(q.V[static_cast<std::size_t>(k)]); };
  if (V(33) != 0) {
    const double lg = V(24) + V(25) / (T + V(26) - 273.15) + V(27) * std::log(T) / kLn10 +
                      V(30) * T + V(31) * std::pow(T, V(32));
    return std::pow(10.0, lg);
  }
  if (V(58) != 0) {
    const double tau = 1 - T / V(56);
    if (tau < 0) return 0;
    const double S = V(48) * tau + V(49) * std::pow(tau, 1.5) + V(50) * std::pow(tau, V(51)) +
                     V(52) * std::pow(tau, V(53)) + V(54) * std::pow(tau, V(55));
    return V(57) * std::exp(S * V(56) / T);
  }
  if (V(39) != 0) return std::pow(10.0, V(36) - V(37) / (V(38) + T - 273.15));
  return 0;
}

// A substance whose liquid already has more than 101.325 kPa at its melting (triple) point has
// no normal boiling point; its tabulated "boiling" T is a sublimation T. The liquid line,
// extrapolated below the triple point, crosses 101.325 kPa at the boiling T of the subcooled
// liquid: that T (to 0.01 K) is what a vapour-liquid calculation needs. 0 when not the case.
double SubcooledBoilingT(const peq::Q07Record& q) {
  const double tm = q.V[93];
  if (tm <= 1E-6 || PreferredP0(q, tm) <= 101.325) return 0;
  double lo = 0.5 * tm, hi = tm;
  if (PreferredP0(q, lo) >= 101.325) return 0;
  for (int k = 0; k < 200; ++k) {
    const double mid = 0.5 * (lo + hi);
    (PreferredP0(q, mid) < 101.325 ? lo : hi) = mid;
  }
  return std::round(0.5 * (lo + hi) * 100.0) / 100.0;
}

std::vector<peq::KijEntry> KijEntries(const Table& t, const std::set<std::string>& known,
                                      std::size_t& skipped) {
  std::vector<peq::KijEntry> out;
  skipped = 0;
  for (std::size_t r = 0; r < t.Rows(); ++r) {
    const std::string& c1 = t.Text(r, "cas1");
    const std::string& c2 = t.Text(r, "cas2");
    if (!known.count(c1) || !known.count(c2)) {
      ++skipped;
      continue;
    }
    out.push_back(peq::KijEntry{c1, c2, t.Num(r, "kij")});
  }
  return out;
}

// Builds the three files; returns false with a reason in err.
bool MakeBase(const fs::path& dataDir, const fs::path& outDir, std::ostream& log,
              std::string& err) {
  try {
    const fs::path pure = dataDir / "pure";
    const Table subst(pure / "substances.tsv");
    const Table antoine(pure / "antoine.tsv");
    const Table wagner(pure / "wagner.tsv");
    const Table d101(pure / "dippr101.tsv");
    const Table d105(pure / "dippr105.tsv");
    const Table d105Extra(kSupplementDir / "dippr105.tsv");
    const Table d106(pure / "dippr106.tsv");
    const Table groups(dataDir / "unifac" / "groups.tsv");
    const Table rq(dataDir / "unifac" / "uniquac_rq.tsv");
    const Table kijPr(dataDir / "binary" / "kij_pr.tsv");
    const Table kijSrk(dataDir / "binary" / "kij_srk.tsv");

    const auto antoineAt = antoine.ByCas();
    const auto wagnerAt = wagner.ByCas();
    const auto d101At = d101.ByCas();
    const auto d105At = d105.ByCas();
    const auto d105ExtraAt = d105Extra.ByCas();
    const auto d106At = d106.ByCas();
    const auto rqAt = rq.ByCas();
    std::map<std::string, std::string> modUnif, oUnif;
    for (std::size_t r = 0; r < groups.Rows(); ++r) {
      const std::string& cas = groups.Text(r, "cas");
      const std::string& model = groups.Text(r, "model");
      const std::string field =
          IncrementField(groups.Text(r, "assignment"), cas + " " + model);
      if (model != "MODUNIFAC" && model != "UNIFAC") throw Failure{"groups.tsv: model " + model};
      auto& target = model == "MODUNIFAC" ? modUnif : oUnif;
      if (!target.emplace(cas, field).second)
        throw Failure{"groups.tsv: " + cas + " " + model + " twice"};
    }

    std::vector<peq::Q07Record> recs;
    std::set<std::string> known;
    std::vector<std::string> noMod, noO, noRq, subcooled;
    int nFro = 0, nWag = 0, nAlp = 0, nRho = 0, nLvh = 0;
    for (std::size_t r = 0; r < subst.Rows(); ++r) {
      peq::Q07Record q;
      const std::string cas = subst.Text(r, "cas");
      if (!known.insert(cas).second) throw Failure{"substances.tsv: CAS-RN " + cas + " twice"};
      q.Formel = subst.Text(r, "formula");
      q.Name1 = subst.Text(r, "name_en");
      q.Name2 = subst.Text(r, "name_de");
      q.CasNr = cas;
      CheckWidth(q.Formel, 12, "formula", log);
      CheckWidth(q.Name1, 40, "name", log);
      CheckWidth(q.Name2, 40, "name", log);
      CheckWidth(q.CasNr, 12, "CAS-RN", log);
      if (recs.size() >= 32767) throw Failure{"more substances than a database holds"};
      q.Nr = static_cast<int16_t>(recs.size() + 1);  // system number: the running number
      auto& V = q.V;
      const double mw = subst.Num(r, "mw");
      V[0] = Prop(mw);
      if (subst.Has(r, "vliq298")) V[1] = Prop(subst.Num(r, "vliq298"));
      V[6] = Prop(subst.Num(r, "tc"));
      V[7] = Prop(subst.Num(r, "pc"));
      if (subst.Has(r, "rhoc")) V[8] = Prop(subst.Num(r, "rhoc"));
      if (subst.Has(r, "omega")) V[9] = Prop(subst.Num(r, "omega"));
      if (subst.Has(r, "tb")) V[10] = Prop(subst.Num(r, "tb"));
      if (subst.Has(r, "tm")) V[93] = Prop(subst.Num(r, "tm"));

      // UNIQUAC r and q of the original-UNIFAC groups.
      if (auto it = rqAt.find(cas); it != rqAt.end()) {
        V[2] = Prop(rq.Num(it->second, "r"));
        V[3] = Prop(rq.Num(it->second, "q"));
      } else {
        noRq.push_back(cas + " " + q.Name1);
      }

      // Liquid density, DIPPR-105 rho = A/B^(1 + (1 - T/C)^D) with A in mol/dm3: the
      // Rackett form of the density function (r1 = 0), r2 = A*M in kg/m3.
      // A substance the curated table lacks may have a row in the supplement.
      const Table* rho = &d105;
      auto it105 = d105At.find(cas);
      if (it105 == d105At.end()) {
        it105 = d105ExtraAt.find(cas);
        rho = it105 == d105ExtraAt.end() ? nullptr : &d105Extra;
      }
      if (rho) {
        const std::size_t k = it105->second;
        if (rho->Text(k, "unit_of_A") != "mol/dm3")
          throw Failure{"dippr105.tsv: " + cas + ": A not in mol/dm3"};
        V[13] = 0;
        V[14] = F(rho->Num(k, "A") * mw);
        V[15] = F(rho->Num(k, "B"));
        V[16] = F(rho->Num(k, "D"));
        V[20] = F(rho->Num(k, "C"));
        V[21] = F(rho->Num(k, "tlo_K"));
        V[22] = F(rho->Num(k, "thi_K"));
        ++nRho;
      }

      // DIPPR-101 ln(p/Pa) = A + B/T + C ln T + D T^E as the FROST form
      // lg(p/kPa) = A' + B'/(C' + t/°C) + D' lg T + H' T^I' with C' = 273.15.
      if (auto it = d101At.find(cas); it != d101At.end()) {
        const std::size_t k = it->second;
        V[24] = F((d101.Num(k, "A") - kLn1000) / kLn10);
        V[25] = F(d101.Num(k, "B") / kLn10);
        V[26] = F(273.15);
        V[27] = F(d101.Num(k, "C"));
        V[28] = 0;  // E: no p term
        V[29] = 0;  // F
        V[30] = 0;  // G
        V[31] = F(d101.Num(k, "D") / kLn10);
        V[32] = F(d101.Num(k, "E"));
        V[33] = F(d101.Num(k, "tlo_K"));
        V[34] = F(d101.Num(k, "thi_K"));
        ++nFro;
      }

      // Antoine lg(p/kPa) = A - B/(C + t/°C): the low-pressure ANTOINE set.
      if (auto it = antoineAt.find(cas); it != antoineAt.end()) {
        const std::size_t k = it->second;
        V[36] = F(antoine.Num(k, "A"));
        V[37] = F(antoine.Num(k, "B"));
        V[38] = F(antoine.Num(k, "C"));
        V[39] = F(antoine.Num(k, "tlo_K"));
        V[40] = F(antoine.Num(k, "thi_K"));
        ++nAlp;
      }

      // Wagner with the Tc and pc of its own fit.
      if (auto it = wagnerAt.find(cas); it != wagnerAt.end()) {
        const std::size_t k = it->second;
        V[48] = F(wagner.Num(k, "A1"));
        V[49] = F(wagner.Num(k, "A2"));
        V[50] = F(wagner.Num(k, "A3"));
        V[51] = F(wagner.Num(k, "n3"));
        V[52] = F(wagner.Num(k, "A4"));
        V[53] = F(wagner.Num(k, "n4"));
        V[54] = F(wagner.Num(k, "A5"));
        V[55] = F(wagner.Num(k, "n5"));
        V[56] = F(wagner.Num(k, "tc_K"));
        V[57] = F(wagner.Num(k, "pc_kPa"));
        V[58] = F(wagner.Num(k, "tlo_K"));
        V[59] = F(wagner.Num(k, "thi_K"));
        ++nWag;
      }

      // DIPPR-106 dh = A (1 - Tr)^(B + C Tr + D Tr^2 + E Tr^3), A in J/kmol: a0 = A/1000 J/mol,
      // a1 = 0 (no exponential factor).
      if (auto it = d106At.find(cas); it != d106At.end()) {
        const std::size_t k = it->second;
        if (d106.Text(k, "unit_of_A") != "J/kmol")
          throw Failure{"dippr106.tsv: " + cas + ": A not in J/kmol"};
        V[96] = F(d106.Num(k, "A") / 1000.0);
        V[97] = 0;
        V[98] = F(d106.Num(k, "B"));
        V[99] = F(d106.Num(k, "C"));
        V[100] = F(d106.Num(k, "D"));
        V[101] = F(d106.Num(k, "E"));
        V[102] = F(d106.Num(k, "tc_K"));
        V[103] = F(d106.Num(k, "tlo_K"));
        V[104] = F(d106.Num(k, "thi_K"));
        ++nLvh;
      }

      if (const double tbl = SubcooledBoilingT(q); tbl > 0) {
        log << "note: " << cas << " " << q.Name1 << ": liquid above 101.325 kPa at its triple point "
            << V[93] << " K; normal boiling T " << V[10] << " K (sublimation) replaced by "
            << tbl << " K (subcooled liquid)\n";
        V[10] = F(tbl);
        subcooled.push_back(cas + " " + q.Name1);
      }

      if (auto it = modUnif.find(cas); it != modUnif.end()) {
        q.ModUnifInkr = it->second;
      } else {
        q.ModUnifInkr = kNoIncrements;
        noMod.push_back(cas + " " + q.Name1);
      }
      if (auto it = oUnif.find(cas); it != oUnif.end()) {
        q.OUnifInkr = it->second;
      } else {
        q.OUnifInkr = kNoIncrements;
        noO.push_back(cas + " " + q.Name1);
      }
      recs.push_back(std::move(q));
    }

    fs::create_directories(outDir);
    if (!peq::WriteQ07((outDir / "PEQBASE.Q07").string(), recs, err)) return false;
    std::size_t skippedPr = 0, skippedSrk = 0;
    const auto pr = KijEntries(kijPr, known, skippedPr);
    const auto srk = KijEntries(kijSrk, known, skippedSrk);
    if (!peq::WriteKijFile((outDir / "KIJ_PR.DAT").string(), pr, err)) return false;
    if (!peq::WriteKijFile((outDir / "KIJ_RKS.DAT").string(), srk, err)) return false;

    log << "PEQBASE.Q07: " << recs.size() << " substances; FROST (DIPPR-101) " << nFro
        << ", WAGNER " << nWag << ", ANTOINE " << nAlp << ", density (DIPPR-105) " << nRho
        << ", delta(LV)h (DIPPR-106) " << nLvh << "\n";
    log << "without Mod. UNIFAC increments (" << noMod.size() << "):";
    for (const auto& n : noMod) log << "\n  " << n;
    log << "\nwithout UNIFAC increments (" << noO.size() << "):";
    for (const auto& n : noO) log << "\n  " << n;
    log << "\nwithout UNIQUAC r, q (" << noRq.size() << ")\n";
    log << "KIJ_PR.DAT: " << pr.size() << " pairs (" << skippedPr << " left out)\n";
    log << "KIJ_RKS.DAT: " << srk.size() << " pairs (" << skippedSrk << " left out)\n";
    return true;
  } catch (const Failure& f) {
    err = f.what;
  } catch (const std::exception& e) {
    err = e.what();
  }
  return false;
}

int Main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: mkbase SHARED_DATA_DIR OUT_DIR\n";
    return 64;
  }
  std::string err;
  if (!MakeBase(argv[1], argv[2], std::cout, err)) {
    std::cerr << "mkbase: " << err << "\n";
    return 1;
  }
  return 0;
}

}  // namespace mkbase

#ifndef PEQ_MKBASE_NO_MAIN
int main(int argc, char** argv) { return mkbase::Main(argc, argv); }
#endif
