#include "session/session.h"

#include "substances/bank.h"

namespace peq {

void AllocSession(Session& s, int n) {
  const std::size_t m = static_cast<std::size_t>(n < 0 ? 0 : n) + 1;
  s.KompIdx.assign(m, 0);
  s.StoffData.assign(m);
  s.MolMasse.assign(m, 0);
  s.TKrit.assign(m, 0);
  s.PKrit.assign(m, 0);
  s.RhoKrit.assign(m, 0);
  s.Omega.assign(m, 0);
  s.ParAUG.assign(m);
  s.ParALP.assign(m);
  s.ParAHP.assign(m);
  s.ParFRO.assign(m);
  s.ParWAG.assign(m);
  s.ParRho.assign(m);
  s.ParLVH.assign(m);
  s.P0Eq.assign(m);
  s.TSiede.assign(m, 0);
  s.TcMix.assign(m, 0);
  s.PcMix.assign(m, 0);
  s.OmegaMix.assign(m, 0);
  s.P0.assign(m, 0);
  s.VLiq.assign(m, 0);
  s.VLiqCm3.assign(m, 0);
  s.Phi0.assign(m, 0);
  s.BVir.assign(m, 0);
  s.Gamma.assign(m, 0);
  s.PhiVMix.assign(m, 0);
  // EOS and kernel block.
  for (Vec<double>* v : {&s.EOSa0, &s.EOSaExp, &s.EOSb0, &s.EOSc0, &s.EOSd0, &s.EOSbExp, &s.EOScExp,
                         &s.EOSdExp, &s.VKrit, &s.RhoKritEOS, &s.PhiKorr, &s.KWert, &s.YGas, &s.XLiq})
    v->assign(m, 0);
  s.AlphaArt.assign(m, 0);
  for (auto* tab : {&s.EOSPar, &s.EOSParDT, &s.EOSParD2T})
    for (Vec<double>& v : *tab) v.assign(m, 0);
  for (Vec<double>& v : s.CompMat) v.assign(m, 0);
  s.EOSScratch.Alloc(m);
  s.KernScratch.Alloc(m);
  s.StoffMenge.assign(m, 0);
  s.FeedN.assign(m, 0);
  s.Feed.assign(m, 0);
  s.GEPar.assign(kGEParDepth, m, 0);
  s.GEParAlt.assign(kGEParDepth, m, 0);
}

void ResetModels(Session& s) {
  s.UnifacNeu = true;
  s.GEModel = -1;
  s.ModelleOffen = true;
  s.P0Eq.fill(std::string());
  s.KompIdx.fill(0);
  s.GEPar.fill(0);
  s.DiagrammZaehler = 0;
}

bool SelectionCommit(Session& s, int n, const Vec<int16_t>& kompIdx, MsgSink* sink) {
  s.NKomp = static_cast<int16_t>(n);
  AllocSession(s, n);
  for (int i = 1; i <= n; ++i) s.KompIdx[i] = kompIdx[i];
  s.GEModel = -1;
  s.VapModel = 0;
  s.UnifacNeu = true;
  s.ModelleOffen = true;
  s.DiagrammZaehler = 0;
  s.TIso = 298.15;
  s.PIso = 101.325;
  s.XIso = 0.5;
  s.Komp1 = 1;
  s.Komp2 = 2;
  bool ok = false;
  LoadSubstances(s, ok, sink);
  return ok;
}

}  // namespace peq
