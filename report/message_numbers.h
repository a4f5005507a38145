// The numbers of the catalogue's messages that the code uses. The texts are in GrVelk.dll;
// docs/messages.md says what each message reports and which arguments it has. A test proves
// that the catalogue has every number of this list.
#pragma once

#include <cstdint>

// X(name, number)
#define CORVANE_MESSAGE_NUMBERS(X)      \
    X(kMsgLegacyDefaultSection, 102)    \
    X(kMsgDatabaseFiles, 103)           \
    X(kMsgOldDatabaseFiles, 104)        \
    X(kMsgLegacyFiles, 105)             \
    X(kMsgBsdFiles, 111)                \
    X(kMsgPosition, 116)                \
    X(kMsgNamelessSection, 161)         \
    X(kMsgAllDatabaseFiles, 162)        \
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
    X(kMsgReadingModel, 601)            \
    X(kMsgWritingDatabase, 602)         \
    X(kMsgDeletingModel, 603)           \
    X(kMsgConvertingFromLegacy, 610)    \
    X(kMsgConvertingToLegacy, 611)      \
    X(kMsgConvertingNodes, 612)         \
    X(kMsgRebuildingNodes, 613)         \
    X(kMsgComputingGeometry, 616)       \
    X(kMsgSettingsNotWritten, 619)      \
    X(kMsgExportingSection, 620)        \
    X(kMsgReadingModels, 621)           \
    X(kMsgStartingProgram, 622)         \
    X(kMsgFrameDistanceFormat, 801)     \
    X(kMsgLegacyNotExtended, 1002)      \
    X(kMsgLegacySectionNotAdded, 1003)  \
    X(kMsgModelMissing, 1011)           \
    X(kMsgFileMissing, 1020)            \
    X(kMsgLegacyGeometryFull, 1025)     \
    X(kMsgStrakeCoincidentNodes, 1042)  \
    X(kMsgLibraryVersion, 1052)         \
    X(kMsgInputBsdFirst, 1066)          \
    X(kMsgLegacyNotCreated, 1067)       \
    X(kMsgLegacyBsdNotWritten, 1068)    \
    X(kMsgDimensionsLacking, 1074)      \
    X(kMsgNoDatabase, 1083)             \
    X(kMsgReadOnly, 1086)               \
    X(kMsgLegacyItemNotPlaced, 2001)    \
    X(kMsgBaseNodeMissing, 2006)        \
    X(kMsgNodeKindUnknown, 2007)        \
    X(kMsgTooManyCompartments, 2009)    \
    X(kMsgTooManyOutlineNodes, 2010)    \
    X(kMsgLegacyItemNotAttached, 2013)  \
    X(kMsgTooManyPillars, 2015)         \
    X(kMsgTooManyOpenings, 2017)        \
    X(kMsgTooManySpans, 2019)           \
    X(kMsgTooManyBrackets, 2020)        \
    X(kMsgTooManyStiffeners, 2021)      \
    X(kMsgCommentRule, 3001)            \
    X(kMsgModelMarker, 3002)            \
    X(kMsgFormatVersionLabel, 3003)     \
    X(kMsgNameLabel, 3004)              \
    X(kMsgPanelTable, 3005)             \
    X(kMsgNodeTable, 3006)              \
    X(kMsgPlateTable, 3007)             \
    X(kMsgStiffenerTable, 3008)         \
    X(kMsgSpanTable, 3009)              \
    X(kMsgCompartmentTable, 3010)       \
    X(kMsgCompartmentSizeTable, 3011)   \
    X(kMsgOpeningTable, 3013)           \
    X(kMsgPillarTable, 3014)            \
    X(kMsgFatigueTable, 3015)           \
    X(kMsgSignature, 3016)              \
    X(kMsgFileHeadLabel, 3017)          \
    X(kMsgBracketTable, 3021)           \
    X(kMsgNameLegend, 3101)             \
    X(kMsgGeneralLegend, 3102)          \
    X(kMsgLoadLegend, 3103)             \
    X(kMsgModulusLegend, 3104)          \
    X(kMsgSlopeLegend, 3105)            \
    X(kMsgAbsentLegend, 3106)           \
    X(kMsgToleranceLegend, 3107)        \
    X(kMsgSymmetryLegend, 3108)         \
    X(kMsgPanelLegend, 3109)            \
    X(kMsgPanelCountLegend, 3110)       \
    X(kMsgNodeLegend, 3111)             \
    X(kMsgExtensionLegend, 3112)        \
    X(kMsgPlateLegend, 3113)            \
    X(kMsgStiffenerLegend, 3114)        \
    X(kMsgSpanLegend, 3115)             \
    X(kMsgCompartmentSizeLegend, 3116)  \
    X(kMsgOutlineLegend, 3117)          \
    X(kMsgCompartmentKindLegend, 3118)  \
    X(kMsgDesignValueLegend, 3119)      \
    X(kMsgLoadCaseLegend, 3120)         \
    X(kMsgPressureLegend, 3121)         \
    X(kMsgBracketLegend, 3122)          \
    X(kMsgOpeningLegend, 3123)          \
    X(kMsgPillarLegend, 3124)           \
    X(kMsgFatigueLegend, 3125)          \
    X(kMsgIdentifierLegend, 3126)       \
    X(kMsgReservedLegend, 3127)         \
    X(kMsgStampProgram, 3128)           \
    X(kMsgStampFormat, 3129)            \
    X(kMsgStampUser, 3130)              \
    X(kMsgBracketScantlingLegend, 3131) \
    X(kMsgFileNotWritten, 3500)         \
    X(kMsgUnexpectedFault, 3502)        \
    X(kMsgResultLegend, 3503)           \
    X(kMsgTextNotWritten, 3504)         \
    X(kMsgBackupNotWritten, 3505)       \
    X(kMsgBackupIsTheFile, 3506)        \
    X(kMsgFileTakenAway, 3507)          \
    X(kMsgFileNotRemoved, 3508)         \
    X(kMsgFileNotRead, 3509)            \
    X(kMsgNoModelNumberLeft, 3510)      \
    X(kMsgNotImplemented, 3515)         \
    X(kMsgLegalNotice, 3520)            \
    X(kMsgLegalNoticeLabel, 3521)       \
    X(kMsgNumberNotOwn, 3522)           \
    X(kMsgModelChanged, 3523)           \
    X(kMsgNameNotUsable, 3525)          \
    X(kMsgPathTooLong, 3526)            \
    X(kMsgNameOfFolder, 3527)           \
    X(kMsgFolderMissing, 3528)          \
    X(kMsgFileNotMade, 3529)            \
    X(kMsgIsOpenDatabase, 3535)         \
    X(kMsgProgramNotStarted, 3536)      \
    X(kMsgProgramCrashed, 3537)         \
    X(kMsgPathNotTold, 3538)            \
    X(kMsgDatabaseGone, 3539)           \
    X(kMsgDatabaseDamaged, 3540)        \
    X(kMsgTooManyPlates, 3550)          \
    X(kMsgTooManyCurves, 3551)          \
    X(kMsgTooManyProfiles, 3552)        \
    X(kMsgTooManySpanBrackets, 3553)    \
    X(kMsgTooManyFatigueTables, 3554)   \
    X(kMsgTooManyLevels, 3555)          \
    X(kMsgLegacyNotRead, 3556)          \
    X(kMsgOverwriteQuestion, 3557)      \
    X(kMsgOnlySections, 3560)           \
    X(kMsgNoLegacySection, 3561)        \
    X(kMsgNoFileSelected, 3570)         \
    X(kMsgDatabaseMissing, 3580)        \
    X(kMsgListIsHalf, 3581)

namespace corvane {

enum MessageNumber : int32_t {
#define CORVANE_DECLARE_NUMBER(name, number) name = number,
    CORVANE_MESSAGE_NUMBERS(CORVANE_DECLARE_NUMBER)
#undef CORVANE_DECLARE_NUMBER
};

}  // namespace corvane
