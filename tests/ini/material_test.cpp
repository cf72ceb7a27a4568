// CQnMatFile loading and writing material files.
#include <gtest/gtest.h>

#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::read_file;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

class MaterialTest : public testing::Test {
 protected:
  std::string material(const std::string& body, const std::string& name = "glass") {
    const std::string path = dir_.file(name + ".mat");
    write_file(path, "[Material]\r\nName=Glas\r\n[Glas]\r\n" + body);
    return path;
  }
  ScratchDir dir_;
};

TEST_F(MaterialTest, MissingKeysTakeTheirDefaults) {
  CQnMatFile mat(material("kdiffus=0.7\r\n"));
  ASSERT_EQ(mat.IsLoaded(), 1);
  const matTyp* m = mat.GetMaterialPtr();
  EXPECT_FLOAT_EQ(m->kdiffus, 0.7f);
  EXPECT_FLOAT_EQ(m->kambient, 0.4f);
  EXPECT_FLOAT_EQ(m->kspiegel, 0.4f);
  EXPECT_FLOAT_EQ(m->alpha, 0.4f);
  EXPECT_FLOAT_EQ(m->Oe, 30.0f);
  for (int i = 0; i < 3; ++i) {
    EXPECT_FLOAT_EQ(m->RGBDiffus[i], 0.4f);
    EXPECT_FLOAT_EQ(m->RGBSpiegel[i], 0.5f);
  }
  EXPECT_EQ(m->Bits, 0u);
  EXPECT_EQ(m->reserved, 0u);
  std::string name, texture = "x";
  mat.GetLogName(name);
  mat.GetTestTexturePath(texture);
  EXPECT_EQ(name, "Glas");
  EXPECT_EQ(texture, "");
}

TEST_F(MaterialTest, ColourFallbacks) {
  CQnMatFile mat(material("kdiffus=1\r\nRGBDiffus=\r\nRGBDiffus255=255,0,51\r\nRGBSpiegel=\r\n"));
  ASSERT_EQ(mat.IsLoaded(), 1);
  const matTyp* m = mat.GetMaterialPtr();
  EXPECT_FLOAT_EQ(m->RGBDiffus[0], 1.0f);
  EXPECT_FLOAT_EQ(m->RGBDiffus[1], 0.0f);
  EXPECT_FLOAT_EQ(m->RGBDiffus[2], 0.2f);
  // The specular fallback reads the same empty key again and finds nothing.
  EXPECT_EQ(m->RGBSpiegel[0], 0.0f);
  EXPECT_EQ(m->RGBSpiegel[2], 0.0f);
}

TEST_F(MaterialTest, ColourWithoutTwoCommasStaysZero) {
  CQnMatFile mat(material("kdiffus=1\r\nRGBDiffus=0.1;0.2;0.3\r\nRGBSpiegel=0.1,0.2\r\n"));
  ASSERT_EQ(mat.IsLoaded(), 1);
  EXPECT_EQ(mat.GetMaterialPtr()->RGBDiffus[0], 0.0f);
  EXPECT_EQ(mat.GetMaterialPtr()->RGBSpiegel[1], 0.0f);
}

struct ExponentCase {
  const char* oe;
  float pow, inv, offset;
};

class MaterialExponent : public MaterialTest, public testing::WithParamInterface<ExponentCase> {};

TEST_P(MaterialExponent, DerivesTheFields) {
  const ExponentCase& c = GetParam();
  CQnMatFile mat(material(std::string("kdiffus=1\r\nOe=") + c.oe + "\r\n"));
  ASSERT_EQ(mat.IsLoaded(), 1);
  const matTyp* m = mat.GetMaterialPtr();
  EXPECT_FLOAT_EQ(m->oePow, c.pow);
  EXPECT_FLOAT_EQ(m->oeInvPow, c.inv);
  EXPECT_FLOAT_EQ(m->oeOffset, c.offset);
}

INSTANTIATE_TEST_SUITE_P(Oe, MaterialExponent,
                         testing::Values(ExponentCase{"4", 8.0f, -0.125f, 8.0f - 1.0f / 1.125f},
                                         ExponentCase{"0.1", 0, 0, 0}, ExponentCase{"0", 0, 0, 0},
                                         ExponentCase{"-4", 0, 0, 0},
                                         ExponentCase{"1", 1.0f, -1.0f, 0.5f}));

TEST_F(MaterialTest, FailedLoads) {
  CQnMatFile mat(dir_.file("missing.mat"));
  EXPECT_EQ(mat.IsLoaded(), 0);
  std::string name = "x";
  mat.GetLogName(name);
  EXPECT_EQ(name, "");  // no file remembered

  CQnMatFile good(material("kdiffus=1\r\n"));
  ASSERT_EQ(good.IsLoaded(), 1);
  // No name, no kdiffus, an empty kambient: 0, and loaded stays as it was.
  write_file(dir_.file("noname.mat"), "[Material]\r\n");
  EXPECT_EQ(good.Read(dir_.file("noname.mat")), 0);
  EXPECT_EQ(good.IsLoaded(), 1);
  EXPECT_EQ(good.Read(material("kdiffus=\r\n", "nokd")), 0);
  EXPECT_EQ(good.Read(material("kdiffus=0.9\r\nkambient=\r\n", "noka")), 0);
  EXPECT_FLOAT_EQ(good.GetMaterialPtr()->kdiffus, 0.9f);  // cleared and partly set
  EXPECT_EQ(good.GetMaterialPtr()->Oe, 0.0f);
  EXPECT_EQ(good.IsLoaded(), 1);
  EXPECT_EQ(good.Read(dir_.file("missing.mat")), 0);
  EXPECT_EQ(good.IsLoaded(), 0);
}

TEST_F(MaterialTest, LogNameFallsBackToTheFileName) {
  const std::string path = dir_.file("glass.mat");
  write_file(path, "[Material]\r\nName=\r\n");
  CQnMatFile mat(path);
  EXPECT_EQ(mat.IsLoaded(), 0);
  std::string name;
  mat.GetLogName(name);
  EXPECT_EQ(name, "glass");
  mat.SetLogName("Other");
  mat.GetLogName(name);
  EXPECT_EQ(name, "Other");
}

TEST_F(MaterialTest, WriteStoresEveryFieldButBitZero) {
  const std::string path = material("kdiffus=0.5\r\nOe=4\r\nBits=5\r\nTesttextur=wood.bmp\r\n");
  CQnMatFile mat(path);
  ASSERT_EQ(mat.IsLoaded(), 1);
  matTyp* m = mat.GetMaterialPtr();
  m->RGBDiffus[0] = 0.25f;
  m->RGBSpiegel[2] = 1.0f;
  ASSERT_EQ(mat.Write(), 1);
  EXPECT_EQ(read_file(path),
            "[Material]\r\nName=Glas\r\n[Glas]\r\nkdiffus=0.5\r\nOe=4\r\nBits=4\r\nTesttextur=wood.bmp\r\n"
            "kambient=0.4\r\nkspiegel=0.4\r\nalpha=0.4\r\nRGBDiffus=0.25,0.4,0.4\r\n"
            "RGBSpiegel=0.5,0.5,1\r\n");
  CQnMatFile back(path);
  EXPECT_EQ(back.GetMaterialPtr()->Bits, 4u);
  EXPECT_FLOAT_EQ(back.GetMaterialPtr()->oePow, 8.0f);
  EXPECT_FLOAT_EQ(back.GetMaterialPtr()->RGBSpiegel[2], 1.0f);
}

TEST_F(MaterialTest, RenamedMaterialReplacesTheOldSection) {
  const std::string path = material("kdiffus=0.5\r\n");
  CQnMatFile mat(path);
  mat.SetLogName("Stein");
  ASSERT_EQ(mat.Write(path), 1);
  const std::string file = read_file(path);
  EXPECT_EQ(file.find("[Glas]"), std::string::npos) << file;
  EXPECT_NE(file.find("Name=Stein\r\n"), std::string::npos);
  EXPECT_NE(file.find("[Stein]\r\nkdiffus=0.5\r\n"), std::string::npos) << file;
}

TEST_F(MaterialTest, OldSectionWithoutKdiffusStays) {
  const std::string path = dir_.file("keep.mat");
  write_file(path, "[Material]\r\nName=Glas\r\n[Glas]\r\nnote=1\r\n");
  CQnMatFile mat;
  mat.SetLogName("Stein");
  ASSERT_EQ(mat.Write(path), 1);
  EXPECT_NE(read_file(path).find("[Glas]\r\nnote=1\r\n"), std::string::npos);
}

TEST_F(MaterialTest, WriteNeedsAnExistingFile) {
  CQnMatFile mat;
  EXPECT_EQ(mat.Write(dir_.file("new.mat")), 0);
  EXPECT_EQ(mat.Write(""), 0);
  EXPECT_EQ(mat.Write(), 0);
}

TEST_F(MaterialTest, CopiesAreIndependent) {
  CQnMatFile mat(material("kdiffus=0.5\r\nTesttextur=t.bmp\r\n"));
  CQnMatFile copy(mat);
  CQnMatFile assigned;
  assigned = mat;
  mat.GetMaterialPtr()->kdiffus = 0.9f;
  mat.SetTestTexturePath("other.bmp");
  for (CQnMatFile* other : {&copy, &assigned}) {
    EXPECT_EQ(other->IsLoaded(), 1);
    EXPECT_FLOAT_EQ(other->GetMaterialPtr()->kdiffus, 0.5f);
    std::string texture, name;
    other->GetTestTexturePath(texture);
    other->GetLogName(name);
    EXPECT_EQ(texture, "t.bmp");
    EXPECT_EQ(name, "Glas");
  }
}

}  // namespace
