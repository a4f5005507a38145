// Sections of the sample ship, computed.
#pragma once

#include <gtest/gtest.h>

#include "database/section_block.h"
#include "database/section_view.h"
#include "tests/support/support.h"

namespace corvane::test {

// Not to be copied: the view has addresses into the model.
struct SampleSection {
    SectionModel model;
    LibraryView view;

    // Of the model of this number in the sample ship's database.
    explicit SampleSection(int32_t number) {
        const std::wstring path = DataPath("../samples/aurora_bay.ve2");
        EXPECT_TRUE(ReadSectionBlock(path, number, false, model));
        MakeLibraryView(model, view);
        QuickCompute(&view.section, nullptr);
    }
    SampleSection(const SampleSection&) = delete;
    SampleSection& operator=(const SampleSection&) = delete;
};

}  // namespace corvane::test
