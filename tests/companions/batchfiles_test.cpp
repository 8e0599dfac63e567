// TO_BATCH.DAT line by line and the reading of from_Batch.dat.
#include "companions/batchfiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// A mixture whose data are simple enough to write the expected file by hand: component i has
// MolMasse 10 i, TKrit 100 i, PKrit 1000 i, RhoKrit, Omega, r, q 0 except Omega 0.5; ParRho(8)
// 2; VLiqCm3 20 i; Antoine "ALP" with A 7, B 1000 i, C 200.
peq::Session Einfach(int n) {
  peq::Session s;
  s.NKomp = static_cast<int16_t>(n);
  peq::AllocSession(s, n);
  for (int i = 1; i <= n; ++i) {
    s.MolMasse[i] = 10.0f * i;
    s.TKrit[i] = 100.0f * i;
    s.PKrit[i] = 1000.0f * i;
    s.Omega[i] = 0.5f;
    s.ParRho[i][8] = 2;
    s.VLiqCm3[i] = 20.0f * i;
    s.P0Eq[i] = "ALP";
    s.ParALP[i].A = 7;
    s.ParALP[i].B = 1000.0f * i;
    s.ParALP[i].C = 200;
    s.StoffMenge[i] = static_cast<float>(i);
  }
  s.PIso = 101.325;
  s.DruckVerlust = 0.5f;
  s.NBoden = 12;
  s.RueckLauf = 2.5f;
  s.NFrak = 0;
  s.NSchritte = 150;
  s.BatchZeit = 0;
  s.BatchGenau = 0.0001f;
  s.BatchMaxIter = 500;
  return s;
}

std::string Komponente(int i) {
  const char* mw[] = {"", ".1000000E+02", ".2000000E+02", ".3000000E+02"};
  const char* tc[] = {"", ".1000000E+03", ".2000000E+03", ".3000000E+03"};
  const char* pc[] = {"", ".1000000E+04", ".2000000E+04", ".3000000E+04"};
  const char* vl[] = {"", ".2000000E+02", ".4000000E+02", ".6000000E+02"};
  const char* b[] = {"", ".1000000E+04", ".2000000E+04", ".3000000E+04"};
  std::string z = ".0000000E+00\r\n";
  std::string t = std::string(mw[i]) + "\r\n" + tc[i] + "\r\n" + pc[i] + "\r\n" + z + ".5000000E+00\r\n" + z + z;
  for (int k = 0; k < 7; ++k) t += z;
  t += ".2000000E+01\r\n-1\r\n" + std::string(vl[i]) + "\r\nALP\r\n.7000000E+01\r\n" + b[i] + "\r\n.2000000E+03\r\n";
  return t;
}

TEST(BatchFiles, ToBatchTernaryNrtlByteForByte) {
  peq::Session s = Einfach(3);
  s.GEModel = 2;
  s.ParUnitNRTL = 3;
  s.VapModel = 1;
  // pair (1,2): k = 1 .. 12 with value 10 k in (1,2) and -k in (2,1); 11 and 12 never go out.
  for (int k = 1; k <= 12; ++k) {
    s.GEPar(k, 1, 2) = 10.0 * k;
    s.GEPar(k, 2, 1) = -k;
  }
  s.GEPar(3, 2, 3) = 0.3;
  peq::BatchStart b{56.25f, 99.5f, 0.06f};
  std::string want =
      "3\r\n2\r\n3\r\n1\r\n.1013250E+03\r\n.5000000E+00\r\n12\r\n.2500000E+01\r\n1\r\n150\r\n.1000000E+03\r\n"
      ".5625000E+02\r\n.9950000E+02\r\n.6000000E-01\r\n.1000000E-03\r\n500\r\n";
  want += Komponente(1) + Komponente(2) + Komponente(3);
  const char* p12[] = {".1000000E+02", ".2000000E+02", "-.1000000E+01", "-.2000000E+01",
                       ".3000000E+02", ".4000000E+02", "-.3000000E+01", "-.4000000E+01",
                       ".5000000E+02", ".6000000E+02", "-.5000000E+01", "-.6000000E+01",
                       ".7000000E+02", ".8000000E+02", "-.7000000E+01", "-.8000000E+01",
                       ".9000000E+02", ".1000000E+03", "-.9000000E+01", "-.1000000E+02"};
  for (const char* v : p12) want += std::string(v) + "\r\n";
  for (int k = 0; k < 20; ++k) want += ".0000000E+00\r\n";  // (1,3)
  for (int k = 0; k < 20; ++k) want += k == 4 ? ".3000000E+00\r\n" : ".0000000E+00\r\n";  // (2,3): k 3 first
  want += ".1000000E+01\r\n.2000000E+01\r\n.3000000E+01\r\n";
  EXPECT_EQ(peq::ToBatchText(s, b), want);
}

TEST(BatchFiles, ToBatchBinaryModUnifacGroupLines) {
  peq::Session s = Einfach(2);
  s.GEModel = 20;
  s.ParUnitNRTL = 3;  // not written for UNIFAC: the unit line is 0
  s.NFrak = 4;
  s.BatchZeit = 7;
  s.StoffData[1].ModUnifInkr = "02001,01002,00000,00000,00000,00000,00000";
  s.StoffData[2].ModUnifInkr = "00000,00000,00000,00000,00000,00000,00000";
  s.StoffData[1].OUnifInkr = "01001,00000,00000,00000,00000,00000,00000";
  peq::BatchStart b{60, 80, 0.03f};
  std::string want =
      "2\r\n20\r\n0\r\n0\r\n.1013250E+03\r\n.5000000E+00\r\n12\r\n.2500000E+01\r\n4\r\n150\r\n.7000000E+01\r\n"
      ".6000000E+02\r\n.8000000E+02\r\n.3000000E-01\r\n.1000000E-03\r\n500\r\n";
  want += Komponente(1) + Komponente(2);
  want += "2,02001,01002\r\n0,\r\n";
  for (int k = 0; k < 20; ++k) want += ".0000000E+00\r\n";
  want += ".1000000E+01\r\n.2000000E+01\r\n";
  EXPECT_EQ(peq::ToBatchText(s, b), want);
  s.GEModel = 21;
  const std::string t = peq::ToBatchText(s, b);
  EXPECT_NE(t.find("\r\n1,01001\r\n0,\r\n"), std::string::npos);
}

TEST(BatchFiles, GroupLineKeepsSixFieldsOnly) {
  EXPECT_EQ(peq::BatchGruppenZeile("01001,01002,01003,01004,01005,01006,01007"),
            "6,01001,01002,01003,01004,01005,01006");
  EXPECT_EQ(peq::BatchGruppenZeile("00000,03015,00000,00000,00000,00000,00000"), "1,03015");
}

TEST(BatchFiles, MaxIterIsPlainSingle) {
  peq::Session s = Einfach(2);
  s.GEModel = 1;
  s.BatchMaxIter = 1234.5f;
  const std::string t = peq::ToBatchText(s, {});
  EXPECT_NE(t.find(".1000000E-03\r\n1234.5\r\n"), std::string::npos);
}

// A hand-written answer of a binary: two time records and two fraction blocks, the second with
// its fields at the very column limits (amount in columns 29..43, temperatures in 33..46 and
// in the first 14 of the last 16 characters).
const char* kAntwort =
    "PEQBATCH\r\n"
    "$T\r\n"
    " 2 2\r\n"
    " 1 0.0 0.9 0.1 0.7 0.3 0.5 0.5 80.5 95.25 1 0 0\r\n"
    " 2, 100.0, 0.8, 0.2\r\n 0.6 0.4 0.2 0.8 82 99.5 0.5 0.5 1\r\n"
    "D e s t i l l a t f r a k t i o n e n\r\n"
    "   fraction  1   amount    =   0.25            kmol\r\n"
    "   x  1                            0.9\r\n"
    "   x  2                            0.1\r\n"
    "\r\n"
    "   temperatures\r\n"
    "   begin                        80.0            90.0    \r\n"
    "\r\n"
    "\r\n"
    "   end                          81.0            91.0    \r\n"
    "fraction  2 ----------------123456789012345xxx\r\n"
    "12345678901234567890    0.75000000\r\n"
    "0.25000000\r\n"
    "x\r\n"
    "x\r\n"
    "12345678901234567890123456789012-1.2345678E+01..............  9.87654321E+01XX\r\n"
    "x\r\n"
    "x\r\n"
    "12345678901234567890123456789012            12 20.00000000000XX\r\n";

TEST(BatchFiles, ReadsTimeRecordsIntoTwoArraysWithScaling) {
  peq::Batchergebnis e;
  std::string err;
  ASSERT_TRUE(peq::ReadBatchZeiten(kAntwort, 2, 20, e, err)) << err;
  ASSERT_EQ(e.NZeit, 2);
  EXPECT_FLOAT_EQ(e.Zeit[1], 0.0f);
  EXPECT_FLOAT_EQ(e.Zeit[2], 80.0f);  // (100 - 20) x 100 / 100
  EXPECT_FLOAT_EQ(e.XDest[1][0], 0.9f);
  EXPECT_FLOAT_EQ(e.XDest[2][1], 0.2f);
  EXPECT_FLOAT_EQ(e.XSumpf[1][0], 0.5f);  // the third group, not the second
  EXPECT_FLOAT_EQ(e.XSumpf[2][1], 0.8f);
  EXPECT_FLOAT_EQ(e.TKopf[1], 80.5f);
  EXPECT_FLOAT_EQ(e.TSumpf[2], 99.5f);
  EXPECT_FLOAT_EQ(e.Kurve5[2], 1.0f);
}

TEST(BatchFiles, ReadsFractionBlocksByColumnsIncludingTheLimits) {
  std::vector<float> z(3 + 2, 0.0f);
  z[0] = 2;
  std::string err;
  ASSERT_TRUE(peq::ReadBatchFraktionen(kAntwort, 2, 2, 273.15, z, err)) << err;
  ASSERT_EQ(z.size(), static_cast<std::size_t>((2 + 5) * 2 + 2 + 2 + 1));
  EXPECT_FLOAT_EQ(z[0], 2.0f);  // kept
  // first block at c = 4
  EXPECT_FLOAT_EQ(z[5], 90.0f);   // bottom begin
  EXPECT_FLOAT_EQ(z[6], 80.0f);   // top begin
  EXPECT_FLOAT_EQ(z[7], 91.0f);   // bottom end
  EXPECT_FLOAT_EQ(z[8], 81.0f);   // top end
  EXPECT_FLOAT_EQ(z[9], 0.25f);   // amount
  EXPECT_FLOAT_EQ(z[10], 0.9f);
  EXPECT_FLOAT_EQ(z[11], 0.1f);
  // second block at c = 11: columns at their limits
  EXPECT_FLOAT_EQ(z[12], 98.7654321f);
  EXPECT_FLOAT_EQ(z[13], -12.345678f);
  EXPECT_FLOAT_EQ(z[14], 20.0f);
  EXPECT_FLOAT_EQ(z[15], 12.0f);
  EXPECT_FLOAT_EQ(z[16], 123456789012345.0f);
  EXPECT_FLOAT_EQ(z[17], 0.75f);
  EXPECT_FLOAT_EQ(z[18], 0.25f);
  // kelvin output adds 273.15
  std::vector<float> k;
  ASSERT_TRUE(peq::ReadBatchFraktionen(kAntwort, 2, 1, 0.0, k, err)) << err;
  EXPECT_FLOAT_EQ(k[5], 90.0f + 273.15f);
}

TEST(BatchFiles, ReadsFractionTextAsItStands) {
  std::vector<std::string> t;
  ASSERT_TRUE(peq::ReadBatchFraktionsText(kAntwort, t));
  ASSERT_FALSE(t.empty());
  EXPECT_EQ(t[0], "   fraction  1   amount    =   0.25            kmol");
  EXPECT_FALSE(peq::ReadBatchFraktionsText("$T\r\n1 1\r\n", t));
}

TEST(BatchFiles, BadAnswersFailClearly) {
  peq::Batchergebnis e;
  e.NZeit = 7;
  std::string err;
  EXPECT_FALSE(peq::ReadBatchZeiten("", 2, 1, e, err));
  EXPECT_FALSE(err.empty());
  EXPECT_FALSE(peq::ReadBatchZeiten("$T\r\n1 3\r\n1 0 0.5 0.5\r\n", 2, 1, e, err));  // short
  EXPECT_FALSE(peq::ReadBatchZeiten("$T\r\n1 1\r\n1 0 0.5 x 0 0 0 0 1 2 3 4 5\r\n", 2, 1, e, err));
  EXPECT_FALSE(peq::ReadBatchZeiten("$T\r\n1 -4\r\n", 2, 1, e, err));
  EXPECT_FALSE(peq::ReadBatchZeiten("$T\r\n1 2.5\r\n", 2, 1, e, err));
  EXPECT_EQ(e.NZeit, 7);  // untouched on failure
  std::vector<float> z{1, 2, 3};
  EXPECT_FALSE(peq::ReadBatchFraktionen(kAntwort, 2, 3, 273.15, z, err));  // only two blocks
  EXPECT_FALSE(peq::ReadBatchFraktionen("fraction\r\n", 2, 1, 273.15, z, err));
  EXPECT_FALSE(peq::ReadBatchFraktionen("   fraction  1   amount    =   0.25\r\nx\r\n", 2, 1, 273.15, z, err));
  std::string garbled = kAntwort;
  garbled.replace(garbled.find("80.0"), 4, "8O.0");
  EXPECT_FALSE(peq::ReadBatchFraktionen(garbled, 2, 1, 273.15, z, err));
  EXPECT_NE(err.find("line"), std::string::npos);
  EXPECT_EQ(z, (std::vector<float>{1, 2, 3}));
}

}  // namespace
