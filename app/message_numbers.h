// The numbers of the catalogue's messages that the code uses. The texts lie in GrVelk.dll; what
// each message reports and which arguments it takes is told in docs/messages.md. A test proves
// that the catalogue has every number of this list.
#pragma once

#include <cstdint>

// X(name, number)
#define CORVANE_MESSAGE_NUMBERS(X)      \
    X(kMsgLegacyDefaultSection, 102)    \
    X(kMsgDatabaseFiles, 103)           \
    X(kMsgBsdFiles, 111)                \
    X(kMsgPosition, 116)                \
    X(kMsgBsdProgram, 203)              \
    X(kMsgSectionProgram, 204)          \
    X(kMsgRuleProgram, 205)             \
    X(kMsgHeadComment, 286)             \
    X(kMsgSettingsSection, 300)         \
    X(kMsgStartSection, 308)            \
    X(kMsgDataDirectoryKey, 400)        \
    X(kMsgWorkDirectoryKey, 401)        \
    X(kMsgBrowseDirectoryKey, 402)      \
    X(kMsgDatabasePathKey, 403)         \
    X(kMsgFirstLimitKey, 404)           \
    X(kMsgIntegerSettingKey, 405)       \
    X(kMsgSecondLimitKey, 406)          \
    X(kMsgStartKey, 423)                \
    X(kMsgStampWritten, 424)            \
    X(kMsgFirstIdentificationKey, 428)  \
    X(kMsgSecondIdentificationKey, 429) \
    X(kMsgThirdLimitKey, 430)           \
    X(kMsgLoginNameKey, 431)            \
    X(kMsgSettingsNotWritten, 619)      \
    X(kMsgReadingModels, 621)           \
    X(kMsgFrameDistanceFormat, 801)     \
    X(kMsgFileMissing, 1020)            \
    X(kMsgLibraryVersion, 1052)         \
    X(kMsgInputBsdFirst, 1066)          \
    X(kMsgReadOnly, 1086)               \
    X(kMsgCommentRule, 3001)            \
    X(kMsgModelMarker, 3002)            \
    X(kMsgFormatVersionLabel, 3003)     \
    X(kMsgNameLabel, 3004)              \
    X(kMsgSignature, 3016)              \
    X(kMsgFileHeadLabel, 3017)          \
    X(kMsgStampProgram, 3128)           \
    X(kMsgStampFormat, 3129)            \
    X(kMsgStampUser, 3130)              \
    X(kMsgFileNotWritten, 3500)         \
    X(kMsgDebugError, 3501)             \
    X(kMsgUnexpectedFault, 3502)

namespace corvane {

enum MessageNumber : int32_t {
#define CORVANE_DECLARE_NUMBER(name, number) name = number,
    CORVANE_MESSAGE_NUMBERS(CORVANE_DECLARE_NUMBER)
#undef CORVANE_DECLARE_NUMBER
};

}  // namespace corvane
