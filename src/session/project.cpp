// Project files (*.PQC): the session written line by line in the "Write" style, read back by
// the free-format item reader. The file names the database and identifies each component by
// its CAS-RN; it carries no substance data.
//
// File order (one value a line, CR LF):
//   date and time | comment | database file name | Konzept | NKomp
//   CAS-RN (12 characters) per component | name (40 characters) per component
//   StoffMenge per component | TIso PIso XIso | TCalc PCalc EtaVCalc | Rechenart CalcEinheit1
//   CalcEinheit2 ThieleOption | TOffsetIn TOffsetOut | ConcUnit FuUnit KurvenPunkte | RueckLauf
//   DruckVerlust NBoden NFrak NSchritte BatchGenau BatchMaxIter RestProzent BatchZeit
//   gE model number | its parameter unit | VapModel | P0Eq per component | 3 reserved reals
//   EOSModel MixRule TpxVorgabe Konoden3D | 2 reserved whole numbers
//   GEPar: for each pair i < j, for k = 1, 3, ..., 11: (k,i,j) (k+1,i,j) (k,j,i) (k+1,j,i)
//
// A failed read leaves the session exactly as it was: the file is read into a copy of the
// session, and the copy replaces the session only when the whole file has been read. That
// includes the case where a component's CAS-RN is missing from the database: the mixture is then
// loaded with a gap (KompIdx 0 for that component) and the result is false. A stop (database
// missing with none open, "invalid project file", a read error) changes nothing, not even the
// open database.
#include "session/project.h"

#include <cerrno>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "session/codepage.h"
#include "session/filewrite.h"
#include "session/numeric.h"
#include "session/writefmt.h"
#include "substances/bank.h"

namespace peq {

namespace {

namespace fs = std::filesystem;

constexpr const char* kCRLF = "\r\n";
constexpr int kMaxKomp = 10;
// A project of ten components is a few thousand lines; anything beyond this is not read.
constexpr std::uintmax_t kMaxProjectBytes = 16u << 20;

// Unit code stored with a gE model number: the unit of that model, 2 for Redlich-Kister.
int16_t UnitOfModel(const Session& s, int16_t model) {
  switch (model) {
    case 1:
      return s.ParUnitWilson;
    case 2:
      return s.ParUnitNRTL;
    case 4:
      return 2;
    case 9:
      return s.ParUnitUNIQUAC;
    default:
      return 0;
  }
}

std::string NowText() {
  const std::time_t t = std::time(nullptr);
  std::tm tm{};
  localtime_r(&t, &tm);
  char buf[32];
  std::strftime(buf, sizeof buf, "%Y-%m-%d %H:%M:%S", &tm);
  return buf;
}

bool ReadWholeFile(const std::string& fileName, std::string& text, std::string& err) {
  std::error_code ec;
  const fs::path p(fileName);
  if (!fs::exists(p, ec)) {
    err = "File not found";
    return false;
  }
  if (fs::is_directory(p, ec)) {
    err = "Path/File access error";
    return false;
  }
  errno = 0;
  std::ifstream in(p, std::ios::binary);
  if (!in) {
    err = SystemText(errno ? errno : EACCES);
    return false;
  }
  std::uintmax_t size = fs::file_size(p, ec);
  if (ec || size > kMaxProjectBytes) size = kMaxProjectBytes;
  text.assign(static_cast<std::size_t>(size), '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (in.bad()) {
    err = "Device I/O error";
    return false;
  }
  text.resize(static_cast<std::size_t>(in.gcount()));
  return true;
}

// The whole file as text, lines ended by CR LF.
std::string ProjectText(const Session& s, const std::string& comment, bool lastSession) {
  std::string o;
  auto line = [&o](const std::string& v) {
    o += v;
    o += kCRLF;
  };
  const int n = s.NKomp;
  std::string bank = s.BankDatei;
  BankNurName(bank);

  line(NowText());
  line(lastSession ? std::string() : Utf8ToCp1252(comment));
  line(Utf8ToCp1252(bank));
  line(WriteBool(s.Konzept));
  line(WriteInt(s.NKomp));
  for (int i = 1; i <= n; ++i) line(FixedField(s.StoffData[i].CasNr, 12));
  for (int i = 1; i <= n; ++i) line(Utf8ToCp1252(FixedField(s.StoffData[i].Name, 40)));
  for (int i = 1; i <= n; ++i) line(WriteSgl(s.StoffMenge[i]));
  line(WriteDbl(s.TIso));
  line(WriteDbl(s.PIso));
  line(WriteSgl(CSng(s.XIso)));
  line(WriteDbl(s.TCalc));
  line(WriteDbl(s.PCalc));
  line(WriteDbl(s.EtaVCalc));
  line(WriteInt(s.Rechenart));
  line(WriteInt(s.CalcEinheit1));
  line(WriteInt(s.CalcEinheit2));
  line(WriteBool(s.ThieleOption));
  line(WriteDbl(s.TOffsetIn));
  line(WriteDbl(s.TOffsetOut));
  line(WriteInt(s.ConcUnit));
  line(WriteInt(s.FuUnit));
  line(WriteInt(s.KurvenPunkte));
  line(WriteSgl(s.RueckLauf));
  line(WriteSgl(s.DruckVerlust));
  line(WriteInt(s.NBoden));
  line(WriteInt(s.NFrak));
  line(WriteInt(s.NSchritte));
  line(WriteSgl(s.BatchGenau));
  line(WriteSgl(s.BatchMaxIter));
  line(WriteInt(s.RestProzent));
  line(WriteSgl(s.BatchZeit));
  const int16_t model = s.Konzept ? s.GEModelEOS : s.GEModel;
  line(WriteInt(model));
  line(WriteInt(UnitOfModel(s, model)));
  line(WriteInt(s.VapModel));
  for (int i = 1; i <= n; ++i) line(FixedField(s.P0Eq[i], 3));
  for (int r = 0; r < 3; ++r) line(WriteSgl(0.0f));
  line(WriteInt(s.EOSModel));
  line(WriteInt(s.MixRule));
  line(WriteBool(s.TpxVorgabe));
  line(WriteBool(s.Konoden3D));
  for (int r = 0; r < 2; ++r) line(WriteInt(0));
  for (int i = 1; i < n; ++i)
    for (int j = i + 1; j <= n; ++j)
      for (int k = 1; k <= 11; k += 2) {
        line(WriteDbl(s.GEPar(k, i, j)));
        line(WriteDbl(s.GEPar(k + 1, i, j)));
        line(WriteDbl(s.GEPar(k, j, i)));
        line(WriteDbl(s.GEPar(k + 1, j, i)));
      }
  return o;
}

}  // namespace

bool IsLastSessionName(const std::string& fileName) {
  const std::size_t n = std::strlen(kLastSessionFile);
  if (fileName.size() < n) return false;
  return ToUpper(std::string_view(fileName).substr(fileName.size() - n)) == kLastSessionFile;
}

std::string ProjektStand(const Session& s) {
  const std::string t = ProjectText(s, std::string(), true);
  const std::size_t nl = t.find('\n');
  return nl == std::string::npos ? t : t.substr(nl + 1);
}

bool ProjektSchreiben(const Session& s, const std::string& fileName, const std::string& comment,
                      std::string& err) {
  err.clear();
  std::string text;
  try {
    text = ProjectText(s, comment, IsLastSessionName(fileName));
  } catch (const NumericFault&) {
    err = "Overflow";
    return false;
  }
  return WriteReplacing(fileName, text, err);
}

bool ProjektLesen(Session& s, const std::string& fileName, MsgSink* sink) {
  bool read = false;
  return ProjektLesen(s, fileName, sink, read);
}

bool ProjektLesen(Session& s, const std::string& fileName, MsgSink* sink, bool& read) {
  read = false;
  std::string text, err;
  if (!ReadWholeFile(fileName, text, err)) {
    Post(sink, "Error", err, MsgIcon::Stop);
    return false;
  }

  Session w = s;  // the load works on a copy; see the head of this file
  bool ok = true;
  try {
    ItemReader r(std::move(text));
    // 1. Date (skipped), comment, database name as one item.
    r.Line();
    const std::string comment = Cp1252ToUtf8(r.Line());
    const std::string bank = Cp1252ToUtf8(r.Item());

    // 2. The database of the project, or the open one.
    bool notFound = false, empty = false;
    BankOeffnen(w, bank, notFound, empty);
    if (!notFound && !empty) {
      std::string bare = bank;
      w.BankDatei = BankNurName(bare);
    } else if (!w.BankOffen) {
      Post(sink, "Execution not possible", "Database of the project " + bank + " not found",
           MsgIcon::Stop);
      return false;
    } else {
      Post(sink, "Note",
           "Database of the project " + bank + " not found or empty resp." + kNL +
               "The actual database " + w.BankDatei + " is still activ.",
           MsgIcon::Warning);
    }

    // 3. Concept and number of components.
    w.Konzept = r.Logical();
    const int16_t n = r.Int16();
    if (n < 1 || n > kMaxKomp) {
      Post(sink, "Execution not possible", "invalid project file", MsgIcon::Stop);
      return false;
    }

    // 4. Arrays for the mixture.
    w.NKomp = n;
    AllocSession(w, n);
    w.UnifacNeu = true;  // new components: the group tables are rebuilt at the next call

    // 5. Components by CAS-RN; a miss leaves a gap and clears ok.
    for (int i = 1; i <= n; ++i) {
      const std::string cas = r.Line();
      const int place = CASSuchen(w, cas);
      if (place > 0) {
        w.KompIdx[i] = static_cast<int16_t>(place);
      } else {
        ok = false;
      }
    }

    // 6. Names (skipped), amounts in the stillpot.
    for (int i = 1; i <= n; ++i) r.Line();
    for (int i = 1; i <= n; ++i) w.StoffMenge[i] = r.Single();

    // 7. Diagram, single-point, unit and batch settings; the model codes.
    w.TIso = r.Number();
    w.PIso = r.Number();
    w.XIso = r.Single();
    w.TCalc = r.Number();
    w.PCalc = r.Number();
    w.EtaVCalc = r.Number();
    w.Rechenart = r.Int16();
    w.CalcEinheit1 = r.Int16();
    w.CalcEinheit2 = r.Int16();
    w.ThieleOption = r.Logical();
    w.TOffsetIn = r.Number();
    w.TOffsetOut = r.Number();
    w.ConcUnit = r.Int16();
    w.FuUnit = r.Int16();
    w.KurvenPunkte = r.Int16();
    w.RueckLauf = r.Single();
    w.DruckVerlust = r.Single();
    w.NBoden = r.Int16();
    w.NFrak = r.Int16();
    w.NSchritte = r.Int16();
    w.BatchGenau = r.Single();
    w.BatchMaxIter = r.Single();
    w.RestProzent = r.Int16();
    w.BatchZeit = r.Single();
    const int16_t model = r.Int16();
    if (w.Konzept)
      w.GEModelEOS = model;
    else
      w.GEModel = model;
    const int16_t unit = r.Int16();
    switch (model) {
      case 1:
        w.ParUnitWilson = unit;
        break;
      case 2:
        w.ParUnitNRTL = unit;
        break;
      case 4:
        w.ParUnitKij = 2;
        break;
      case 9:
        w.ParUnitUNIQUAC = unit;
        break;
      default:
        break;
    }
    w.VapModel = r.Int16();

    // 8. Vapour-pressure codes, reserved fields and the rest.
    for (int i = 1; i <= n; ++i) w.P0Eq[i] = RTrim(r.Line());
    for (int k = 0; k < 3; ++k) r.Single();
    w.EOSModel = r.Int16();
    w.MixRule = r.Int16();
    w.TpxVorgabe = r.Logical();
    w.Konoden3D = r.Logical();
    for (int k = 0; k < 2; ++k) r.Int16();

    // 9. The binary parameters.
    for (int i = 1; i < n; ++i)
      for (int j = i + 1; j <= n; ++j)
        for (int k = 1; k <= 11; k += 2) {
          w.GEPar(k, i, j) = r.Number();
          w.GEPar(k + 1, i, j) = r.Number();
          w.GEPar(k, j, i) = r.Number();
          w.GEPar(k + 1, j, i) = r.Number();
        }
    w.ProjektKommentar = comment;
  } catch (const ReadError& e) {
    Post(sink, "Error", e.text, MsgIcon::Stop);
    return false;
  }

  s = std::move(w);
  read = true;
  return ok;
}

}  // namespace peq
