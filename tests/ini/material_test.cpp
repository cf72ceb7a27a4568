// CQnMatFile loading and writing material files.
#include <gtest/gtest.h>

#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::read_file;
using qnutil_test::write_file;

TEST(MaterialTest, WriteStoresEveryFieldButBitZero) {
  qnutil_test::ScratchDir dir;
  const std::string path = dir.file("glass.mat");
  write_file(path,
             "[Material]\r\nName=Glas\r\n[Glas]\r\nkdiffus=0.5\r\nOe=4\r\nBits=5\r\n"
             "Testtextur=wood.bmp\r\n");
  CQnMatFile mat(path);
  ASSERT_EQ(mat.IsLoaded(), 1);
  matTyp* m = mat.GetMaterialPtr();
  m->RGBDiffus[0] = 0.25f;
  m->RGBSpiegel[2] = 1.0f;
  ASSERT_EQ(mat.Write(), 1);
  EXPECT_EQ(read_file(path),
            "[Material]\r\nName=Glas\r\n[Glas]\r\nkdiffus=0.5\r\nOe=4\r\nBits=4\r\n"
            "Testtextur=wood.bmp\r\nkambient=0.4\r\nkspiegel=0.4\r\nalpha=0.4\r\n"
            "RGBDiffus=0.25,0.4,0.4\r\nRGBSpiegel=0.5,0.5,1\r\n");
  CQnMatFile back(path);
  EXPECT_EQ(back.GetMaterialPtr()->Bits, 4u);
  EXPECT_FLOAT_EQ(back.GetMaterialPtr()->oePow, 8.0f);
  EXPECT_FLOAT_EQ(back.GetMaterialPtr()->RGBSpiegel[2], 1.0f);
  CQnMatFile fresh;
  EXPECT_EQ(fresh.Write(dir.file("new.mat")), 0);  // the file must exist
  EXPECT_EQ(fresh.Write(""), 0);
  EXPECT_EQ(fresh.Write(), 0);
}

}  // namespace
