// CQnMatFile loading and writing material files.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::read_file;
using qnutil_test::write_file;

class MaterialTest : public testing::Test {
 protected:
  std::string material(const std::string& body, const std::string& name = "glass") {
    const std::string path = dir_.file(name + ".mat");
    write_file(path, "[Material]\r\nName=Glas\r\n[Glas]\r\n" + body);
    return path;
  }
  static std::string log_name(CQnMatFile& mat) {
    std::string name = "x";
    mat.GetLogName(name);
    return name;
  }
  qnutil_test::ScratchDir dir_;
};

TEST_F(MaterialTest, MissingKeysTakeTheirDefaults) {
  CQnMatFile mat(material("kdiffus=0.7\r\n"));
  ASSERT_EQ(mat.IsLoaded(), 1);
  const matTyp* m = mat.GetMaterialPtr();
  EXPECT_FLOAT_EQ(m->kdiffus, 0.7f);
  for (const float value : {m->kambient, m->kspiegel, m->alpha}) EXPECT_FLOAT_EQ(value, 0.4f);
  EXPECT_FLOAT_EQ(m->Oe, 30.0f);
  EXPECT_EQ(m->Bits, 0u);
  EXPECT_EQ(m->reserved, 0u);
  std::string texture = "x";
  mat.GetTestTexturePath(texture);
  EXPECT_EQ(log_name(mat), "Glas");
  EXPECT_EQ(texture, "");
}

// A colour takes three comma-separated parts; an empty diffuse colour falls
// back to the 0-255 form, while the specular fallback reads the same empty
// key again and finds nothing.
TEST_F(MaterialTest, ColourFallbacks) {
  const struct {
    const char* body;
    std::array<float, 3> diffus, spiegel;
  } rows[] = {{"", {0.4f, 0.4f, 0.4f}, {0.5f, 0.5f, 0.5f}},
              {"RGBDiffus=\r\nRGBDiffus255=255,0,51\r\nRGBSpiegel=\r\n", {1, 0, 0.2f}, {0, 0, 0}},
              {"RGBDiffus=0.1;0.2;0.3\r\nRGBSpiegel=0.1,0.2\r\n", {0, 0, 0}, {0, 0, 0}}};
  for (const auto& row : rows) {
    CQnMatFile mat(material(std::string("kdiffus=1\r\n") + row.body));
    ASSERT_EQ(mat.IsLoaded(), 1);
    for (int i = 0; i < 3; ++i) {
      EXPECT_FLOAT_EQ(mat.GetMaterialPtr()->RGBDiffus[i], row.diffus[i]) << row.body << i;
      EXPECT_FLOAT_EQ(mat.GetMaterialPtr()->RGBSpiegel[i], row.spiegel[i]) << row.body << i;
    }
  }
}

TEST_F(MaterialTest, ExponentDerivesItsFields) {
  const struct {
    const char* oe;
    float pow, inv, offset;
  } rows[] = {{"4", 8.0f, -0.125f, 8.0f - 1.0f / 1.125f},
              {"0.1", 0, 0, 0},
              {"0", 0, 0, 0},
              {"-4", 0, 0, 0},
              {"1", 1.0f, -1.0f, 0.5f}};
  for (const auto& row : rows) {
    CQnMatFile mat(material(std::string("kdiffus=1\r\nOe=") + row.oe + "\r\n", row.oe));
    ASSERT_EQ(mat.IsLoaded(), 1);
    const matTyp* m = mat.GetMaterialPtr();
    EXPECT_FLOAT_EQ(m->oePow, row.pow) << row.oe;
    EXPECT_FLOAT_EQ(m->oeInvPow, row.inv) << row.oe;
    EXPECT_FLOAT_EQ(m->oeOffset, row.offset) << row.oe;
  }
}

TEST_F(MaterialTest, FailedLoads) {
  CQnMatFile mat(dir_.file("missing.mat"));
  EXPECT_EQ(mat.IsLoaded(), 0);
  EXPECT_EQ(log_name(mat), "");  // no file remembered

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

  // Without a name the file's name stands in.
  write_file(dir_.file("stone.mat"), "[Material]\r\nName=\r\n");
  CQnMatFile unnamed(dir_.file("stone.mat"));
  EXPECT_EQ(unnamed.IsLoaded(), 0);
  EXPECT_EQ(log_name(unnamed), "stone");
  unnamed.SetLogName("Other");
  EXPECT_EQ(log_name(unnamed), "Other");
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
            "[Material]\r\nName=Glas\r\n[Glas]\r\nkdiffus=0.5\r\nOe=4\r\nBits=4\r\nTesttextur=wood."
            "bmp\r\n"
            "kambient=0.4\r\nkspiegel=0.4\r\nalpha=0.4\r\nRGBDiffus=0.25,0.4,0.4\r\n"
            "RGBSpiegel=0.5,0.5,1\r\n");
  CQnMatFile back(path);
  EXPECT_EQ(back.GetMaterialPtr()->Bits, 4u);
  EXPECT_FLOAT_EQ(back.GetMaterialPtr()->oePow, 8.0f);
  EXPECT_FLOAT_EQ(back.GetMaterialPtr()->RGBSpiegel[2], 1.0f);
  CQnMatFile fresh;
  EXPECT_EQ(fresh.Write(dir_.file("new.mat")), 0);  // the file must exist
  EXPECT_EQ(fresh.Write(""), 0);
  EXPECT_EQ(fresh.Write(), 0);
}

// The old section goes only when it holds a material (has kdiffus).
TEST_F(MaterialTest, RenamedMaterialReplacesAnOldSectionWithKdiffus) {
  const std::string path = material("kdiffus=0.5\r\n");
  CQnMatFile mat(path);
  mat.SetLogName("Stein");
  ASSERT_EQ(mat.Write(path), 1);
  const std::string file = read_file(path);
  EXPECT_EQ(file.find("[Glas]"), std::string::npos) << file;
  EXPECT_NE(file.find("Name=Stein\r\n"), std::string::npos);
  EXPECT_NE(file.find("[Stein]\r\nkdiffus=0.5\r\n"), std::string::npos) << file;
  const std::string keep = material("note=1\r\n", "keep");
  CQnMatFile other;
  other.SetLogName("Stein");
  ASSERT_EQ(other.Write(keep), 1);
  EXPECT_NE(read_file(keep).find("[Glas]\r\nnote=1\r\n"), std::string::npos);
}

}  // namespace
