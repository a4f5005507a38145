// What the tests of the stand-ins share: a database with the sample ship, and a form over it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/system.h"
#include "stand_ins/form.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane::stand_ins {

struct StandInTest : testing::Test {
    test::RecordedReports screen;
    test::TemporaryFolder folder;
    std::wstring path = system::AbsolutePath(folder.File(L"my ship.ve2"));
    Form form;

    // The questions that were asked, and the answer to each.
    static inline std::vector<std::string> asked;
    static inline bool answerYes = false;
    static bool Ask(const std::wstring& text) {
        asked.push_back(test::Narrow(text));
        return answerYes;
    }

    void SetUp() override {
        asked.clear();
        answerYes = false;
        test::WriteFileBytes(path,
                             test::ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2")));
    }

    // The command line of a program for this database.
    std::wstring Line(const std::wstring& rest = L"") const { return L"\"" + path + L"\"" + rest; }
    std::string Bytes() const { return test::ReadFileBytes(path); }
    std::string Fact(const std::wstring& label) const {
        const auto found =
            std::ranges::find_if(form.facts, [&](const auto& fact) { return fact.label == label; });
        return found == form.facts.end() ? "(none)" : test::Narrow(found->value);
    }
    // The one warning that was shown.
    static std::string Warning() {
        const std::vector<std::string> shown = test::RecordedReports::Of("warning");
        return shown.size() == 1 ? shown[0] : "(" + std::to_string(shown.size()) + " warnings)";
    }
    // The field with this label, "&" left out.
    Field& FieldOf(const std::wstring& label) {
        for (Field& field : form.fields) {
            std::wstring plain = field.label;
            std::erase(plain, L'&');
            if (plain == label) return field;
        }
        ADD_FAILURE() << test::Narrow(label);
        return form.fields.at(0);
    }
    void Enter(const std::wstring& label, const std::wstring& value) {
        FieldOf(label).value = value;
    }
    std::string Shown(const std::wstring& label) { return test::Narrow(FieldOf(label).value); }
};

}  // namespace corvane::stand_ins
