#include "database/stamps.h"

#include <array>
#include <utility>

#include "files/settings_file.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "text/numbers.h"
#include "text/text.h"
#include "text/version.h"

namespace corvane {
namespace {

constexpr size_t kLongestIdentification = 400;

std::wstring IdentificationText(MessageNumber key) {
    const std::string value =
        system::ReadProfileText(GetMessageBytes(kMsgSettingsSection), GetMessageBytes(key), "",
                                SettingsFile(), kLongestIdentification);
    return Trim(CutAtNul(system::WideFromAnsi(value)));
}

std::wstring LoggedInUser() {
    std::array<char, 256> buffer{};
    LoginName(buffer.data(), static_cast<int32_t>(buffer.size()) - 1);
    return CutAtNul(system::WideFromAnsi({buffer.data(), buffer.size()}));
}

}  // namespace

Stamp CurrentStamp() {
    const system::LocalTime now = system::Now();
    Stamp stamp;
    stamp.firstIdentification = IdentificationText(kMsgFirstIdentificationKey);
    stamp.secondIdentification = IdentificationText(kMsgSecondIdentificationKey);
    stamp.date = DateText(now, true);
    stamp.time = system::LongTimeText(now);
    stamp.userName = LoggedInUser();
    return stamp;
}

void WriteStampLines(TextWriter& writer, const Stamp& stamp, float formatVersion) {
    const std::string rule = GetMessageBytes(kMsgCommentRule);
    const ProgramVersion& version = kProgramVersion;
    WriteLine(writer, rule + GetMessageBytes(kMsgStampProgram) + std::to_string(version.major) +
                          '.' + std::to_string(version.minor) + " R" +
                          std::to_string(version.revision) + " 32bit");
    WriteLine(writer, rule + GetMessageBytes(kMsgStampFormat) + PrintForm(formatVersion));

    std::wstring written = stamp.firstIdentification + L", " + stamp.secondIdentification;
    if (!stamp.secondIdentification.empty()) written += L' ';
    written += stamp.date + L",  " + stamp.time;
    WriteLine(writer, rule + ' ' + GetMessageBytes(kMsgStampWritten) + " : " +
                          system::AnsiFromWide(written));

    if (stamp.userName.empty()) return;
    WriteLine(writer, rule + GetMessageBytes(kMsgStampUser) + system::AnsiFromWide(stamp.userName));
}

void ReadStampLine(std::string_view line, StampTexts& texts) {
    const std::string rule = GetMessageBytes(kMsgCommentRule);
    const std::pair<std::string, std::wstring StampTexts::*> lines[] = {
        {rule + GetMessageBytes(kMsgStampProgram), &StampTexts::program},
        {rule + GetMessageBytes(kMsgStampFormat), &StampTexts::formatVersion},
        {rule + ' ' + GetMessageBytes(kMsgStampWritten) + " : ", &StampTexts::written},
        {rule + GetMessageBytes(kMsgStampUser), &StampTexts::user},
    };
    for (const auto& [beginning, text] : lines) {
        if (!line.starts_with(beginning)) continue;
        const size_t colon = beginning.rfind(':');
        texts.*text = system::WideFromAnsi(Trim(line.substr(colon + 1)));
    }
}

}  // namespace corvane
