#include "shell/clsFileDialog.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(clsFileDialogTest, QtFilterKeepsTheCaptionAndListsThePatternsAsQtReadsThem) {
    EXPECT_EQ(QtNameFilter({"Hale MRI (*.txt, *.dat)", "*.txt;*.dat"}), "Hale MRI (*.txt *.dat)");
    EXPECT_EQ(QtNameFilter({" Norvelle Corvane (*.cvpj) ", "*.cvpj"}), "Norvelle Corvane (*.cvpj)");
}

} // namespace
} // namespace corvane
