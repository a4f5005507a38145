// MakeLibraryView: a section as the geometry library gets it.
#include <gtest/gtest.h>

#include "database/section_view.h"
#include "tests/database/section_sample.h"

namespace corvane {
namespace {

TEST(SectionViewTest, ArraysOfTheModelAreHandedOverInPlace) {
    SectionModel model = test::FullSection();
    LibraryView view;
    MakeLibraryView(model, view);
    ASSERT_EQ(view.section.strakeCount, 2);
    const Strake& strake = view.section.strakes[0];
    EXPECT_EQ(strake.nodes, model.panels[0].nodes.data());
    EXPECT_EQ(strake.items, model.panels[0].items.data());
    EXPECT_EQ(strake.stiffeners, model.panels[0].stiffeners.data());
    EXPECT_EQ(strake.nodeCount, 3);
    EXPECT_EQ(strake.itemCount, 2);
    EXPECT_EQ(strake.stiffenerCount, 2);
    EXPECT_EQ(strake.number, 1);
    EXPECT_EQ(view.section.strakes[1].number, 2);
    EXPECT_EQ(strake.values[0], 0.8f);
    EXPECT_EQ(strake.values[1], 3.2f);
    EXPECT_EQ(strake.values[2], 15.5f);
}

TEST(SectionViewTest, ItemsAreOneLessThanNodesAndNeverNegative) {
    SectionModel model;
    model.panels.resize(3);
    model.panels[1].nodes.resize(1);
    model.panels[2].nodes.resize(4);
    model.panels[0].items.resize(7);
    LibraryView view;
    MakeLibraryView(model, view);
    EXPECT_EQ(view.section.strakes[0].itemCount, 0);
    EXPECT_TRUE(model.panels[0].items.empty());
    EXPECT_EQ(view.section.strakes[1].itemCount, 0);
    EXPECT_EQ(view.section.strakes[2].itemCount, 3);
    EXPECT_EQ(model.panels[2].items.size(), 3u);
}

TEST(SectionViewTest, PlateEndsAreThoseOfThePlates) {
    SectionModel model = test::FullSection();
    LibraryView view;
    MakeLibraryView(model, view);
    MakeLibraryView(model, view);  // again: not twice as many
    ASSERT_EQ(view.section.strakes[0].plateCount, 2);
    EXPECT_EQ(view.section.strakes[0].plateEnds[0], 2.4f);
    EXPECT_EQ(view.section.strakes[0].plateEnds[1], 16.5f);
    EXPECT_EQ(model.panels[0].plateEnds.size(), 2u);
}

TEST(SectionViewTest, ProfileOfAStiffenerIsThatOfItsFirstSpan) {
    SectionModel model = test::FullSection();
    model.panels[0].stiffenerDetails[1].spans.clear();
    model.panels[0].stiffenerDetails[0].mirrored = 0;
    model.panels[0].stiffenerDetails[1].mirrored = -1;
    model.panels[0].stiffeners[1].profile = kProfileTee;
    LibraryView view;
    MakeLibraryView(model, view);
    const Stiffener& first = view.section.strakes[0].stiffeners[0];
    EXPECT_EQ(first.profile, kProfileBulb);
    EXPECT_EQ(first.webHeight_mm, 260);
    EXPECT_EQ(first.webThickness_mm, 12);
    EXPECT_EQ(first.flangeBreadth_mm, 0);
    EXPECT_EQ(view.section.strakes[0].stiffeners[1].profile, kProfileTee);
    EXPECT_EQ(first.mirrored, 0);
    EXPECT_EQ(view.section.strakes[0].stiffeners[1].mirrored, -1);
}

TEST(SectionViewTest, CountsAreClampedToSixteenBits) {
    SectionModel model;
    model.panels.resize(1);
    model.panels[0].nodes.resize(40000);
    model.panels[0].plates.resize(33000);
    model.compartments.resize(1);
    model.compartments[0].outline.resize(70000);
    model.symmetryMode = 100000;
    LibraryView view;
    MakeLibraryView(model, view);
    EXPECT_EQ(view.section.strakes[0].nodeCount, 32767);
    EXPECT_EQ(view.section.strakes[0].itemCount, 32766);
    EXPECT_EQ(view.section.strakes[0].plateCount, 32767);
    EXPECT_EQ(view.section.compartments[0].nodeCount, 32767);
    EXPECT_EQ(view.section.symmetryMode, 32767);
}

TEST(SectionViewTest, SymmetryToleranceAndCompartmentsAreTheModels) {
    SectionModel model = test::FullSection();
    model.tolerance_m = 0.01f;
    LibraryView view;
    MakeLibraryView(model, view);
    EXPECT_EQ(view.section.symmetryMode, 1);
    EXPECT_EQ(view.section.tolerance, 0.01f);
    EXPECT_EQ(view.section.previewMode, 0);
    EXPECT_EQ(view.section.geometryPresent, -1);
    ASSERT_EQ(view.section.compartmentCount, 2);
    EXPECT_EQ(view.section.compartments[0].nodeCount, 3);
    EXPECT_EQ(view.section.compartments[0].nodes[2].strake, 2);
    EXPECT_EQ(view.section.compartments[1].nodeCount, 0);
}

TEST(SectionViewTest, SectionWithoutLinesHasNothingToDraw) {
    SectionModel model;
    LibraryView view;
    MakeLibraryView(model, view);
    EXPECT_EQ(view.section.strakeCount, 0);
    EXPECT_EQ(view.section.geometryPresent, 0);
    model.panels.resize(2);
    MakeLibraryView(model, view);
    EXPECT_EQ(view.section.strakeCount, 2);
    EXPECT_EQ(view.section.geometryPresent, 0);
}

}  // namespace
}  // namespace corvane
