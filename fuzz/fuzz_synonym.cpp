// The synonym file and its search: the input is a typed query (its first line) followed by the
// contents of "SYNOM.TXT". The search runs as a Return in the name box runs it, on the bundled
// database; a hit must name a place of the database, and the data line of a synonym hit is split
// as the warning box splits it.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "substances/synonym.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace peqfuzz;
  static const peq::Session base = FreshSession();
  const std::string all(reinterpret_cast<const char*>(data), size);
  const std::size_t nl = all.find('\n');
  const std::string query = all.substr(0, nl == std::string::npos ? all.size() : nl);
  const std::string file = nl == std::string::npos ? std::string() : all.substr(nl + 1);
  WriteInput(peq::kSynonymFile, reinterpret_cast<const uint8_t*>(file.data()), file.size());

  peq::MsgSink msgs;
  const peq::StoffSucheErgebnis r = peq::StoffSuchen(base, query, WorkDir(), &msgs);
  if (r.found) Require(r.place >= 1 && r.place <= base.BankAnz, "a hit outside the database");
  if (!r.found) Require(r.art != peq::StoffSucheErgebnis::Art::Direkt, "a direct match that found nothing");

  // The pieces of the search on their own, on the query as typed.
  std::string name = peq::BlankEntfernen(peq::NameNormieren(query));
  const std::string key = peq::SynonymSchluessel(peq::SynonymUmschreiben(name));
  Require(key.find('-') == std::string::npos && key.find('(') == std::string::npos,
          "the key still holds a hyphen or a bracket");
  std::string cas, line;
  bool missing = false;
  peq::SynonymSuchen(name, WorkDir(), cas, line, missing, &msgs);
  std::string first, nm, last;
  peq::SynonymZeileZerlegen(line, first, nm, last);
  peq::SynonymZeileZerlegen(query, first, nm, last);
  return 0;
}
