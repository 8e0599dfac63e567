// The private mini-database of a mixture.
#include "substances/privatebank.h"

#include <vector>

#include "session/codepage.h"
#include "substances/bank.h"

namespace peq {

namespace {

// Places of the value table (see q07.cpp for the layout).
constexpr int kRhoFirst = 12, kRhoTLo = 21, kRhoTHi = 22;
constexpr int kFroFirst = 23, kFroTLo = 33, kFroTHi = 34;
constexpr int kAlpFirst = 36, kAlpTLo = 39, kAlpTHi = 40;
constexpr int kAhpFirst = 42, kAhpTLo = 45, kAhpTHi = 46;
constexpr int kWagFirst = 47, kWagTLo = 58, kWagTHi = 59;
constexpr int kLvhFirst = 96, kLvhTc = 102, kLvhSpare = 95, kLvhTLo = 103, kLvhTHi = 104;

// Lays session values over the record where they differ from the loaded ones.
class Overlay {
 public:
  explicit Overlay(Q07Record& r) : r_(r) {}
  void Value(float session, float loaded, int place) {
    if (session != loaded) r_.V[static_cast<std::size_t>(place)] = session;
  }
  void Limit(int16_t session, int16_t loaded, int place) {
    if (session != loaded) r_.V[static_cast<std::size_t>(place)] = static_cast<float>(session);
  }
  // A text field: replaced when its trimmed text changed.
  void Text(const std::string& session, const std::string& loaded, std::string& field) {
    if (Trim(session) != Trim(loaded)) field = Trim(session);
  }

 private:
  Q07Record& r_;
};

}  // namespace

bool PrivateBankRecord(const Session& s, int i, Q07Record& out, std::string& err) {
  if (i < 1 || i > s.NKomp) {
    err = "Subscript out of range";
    return false;
  }
  const std::size_t k = static_cast<std::size_t>(i);
  Q07Record r;
  if (!ReadQ07Record(BankPfadDatei(s), static_cast<int>(s.KompIdx[k]) + 1, r, err)) return false;

  // What the load makes of the record, component 1 of a session of its own.
  Session o;
  o.PfadBank = s.PfadBank;
  o.BankDatei = s.BankDatei;
  o.NamenEnglisch = s.NamenEnglisch;
  o.NKomp = 1;
  AllocSession(o, 1);
  o.KompIdx[1] = s.KompIdx[k];
  if (!LoadSubstance(o, 1)) {
    err = "Overflow";
    return false;
  }

  Overlay lay(r);
  const StoffRecord& st = s.StoffData[k];
  const StoffRecord& ot = o.StoffData[1];
  lay.Text(st.Formel, ot.Formel, r.Formel);
  lay.Text(st.CasNr, ot.CasNr, r.CasNr);
  lay.Text(st.ModUnifInkr, ot.ModUnifInkr, r.ModUnifInkr);
  lay.Text(st.OUnifInkr, ot.OUnifInkr, r.OUnifInkr);
  if (Trim(st.Name) != Trim(ot.Name)) {
    std::string& name = s.NamenEnglisch ? r.Name1 : r.Name2;
    const std::size_t semi = name.find(';');
    name = Trim(st.Name) + (semi == std::string::npos ? std::string() : name.substr(semi));
  }

  lay.Value(s.MolMasse[k], o.MolMasse[1], 0);
  lay.Value(st.VWilsonDb, ot.VWilsonDb, 1);
  lay.Value(st.RUniquac, ot.RUniquac, 2);
  lay.Value(st.QUniquac, ot.QUniquac, 3);
  lay.Value(s.TKrit[k], o.TKrit[1], 6);
  lay.Value(s.PKrit[k], o.PKrit[1], 7);
  lay.Value(s.RhoKrit[k], o.RhoKrit[1], 8);
  lay.Value(s.Omega[k], o.Omega[1], 9);
  lay.Value(st.TSiedeDb, ot.TSiedeDb, 10);
  // The melting point is read from place 93 first; a change goes there.
  lay.Value(st.TSchmelz, ot.TSchmelz, 93);

  for (int j = 0; j <= 8; ++j) lay.Value(s.ParRho[k][j], o.ParRho[1][j], kRhoFirst + j);
  lay.Limit(s.ParRho[k].TLo, o.ParRho[1].TLo, kRhoTLo);
  lay.Limit(s.ParRho[k].THi, o.ParRho[1].THi, kRhoTHi);

  for (int j = 0; j <= 9; ++j) lay.Value(s.ParFRO[k][j], o.ParFRO[1][j], kFroFirst + j);
  lay.Limit(s.ParFRO[k].TLo, o.ParFRO[1].TLo, kFroTLo);
  lay.Limit(s.ParFRO[k].THi, o.ParFRO[1].THi, kFroTHi);

  const auto antoine = [&lay](const ParAntoine& a, const ParAntoine& b, int first, int lo, int hi) {
    lay.Value(a.A, b.A, first);
    lay.Value(a.B, b.B, first + 1);
    lay.Value(a.C, b.C, first + 2);
    lay.Limit(a.TLo, b.TLo, lo);
    lay.Limit(a.THi, b.THi, hi);
  };
  antoine(s.ParALP[k], o.ParALP[1], kAlpFirst, kAlpTLo, kAlpTHi);
  antoine(s.ParAHP[k], o.ParAHP[1], kAhpFirst, kAhpTLo, kAhpTHi);

  for (int j = 0; j <= 10; ++j) lay.Value(s.ParWAG[k][j], o.ParWAG[1][j], kWagFirst + j);
  lay.Limit(s.ParWAG[k].TLo, o.ParWAG[1].TLo, kWagTLo);
  lay.Limit(s.ParWAG[k].THi, o.ParWAG[1].THi, kWagTHi);

  for (int j = 0; j <= 5; ++j) lay.Value(s.ParLVH[k][j], o.ParLVH[1][j], kLvhFirst + j);
  lay.Value(s.ParLVH[k][6], o.ParLVH[1][6], kLvhTc);
  lay.Value(s.ParLVH[k][8], o.ParLVH[1][8], kLvhSpare);
  lay.Limit(s.ParLVH[k].TLo, o.ParLVH[1].TLo, kLvhTLo);
  lay.Limit(s.ParLVH[k].THi, o.ParLVH[1].THi, kLvhTHi);

  out = std::move(r);
  return true;
}

bool WritePrivateBank(const Session& s, const std::string& path, std::string& err) {
  if (s.NKomp < 1) {
    err = "no components";
    return false;
  }
  std::vector<Q07Record> records;
  records.reserve(static_cast<std::size_t>(s.NKomp));
  for (int i = 1; i <= s.NKomp; ++i) {
    Q07Record r;
    if (!PrivateBankRecord(s, i, r, err)) return false;
    records.push_back(std::move(r));
  }
  return WriteQ07(path, records, err);
}

}  // namespace peq
