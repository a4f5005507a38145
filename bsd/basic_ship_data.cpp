#include "bsd/basic_ship_data.h"

#include "bsd/labels.h"

namespace corvane {

BasicShipData NewBasicShipData(const std::wstring& shortName) {
    BasicShipData bsd;
    bsd.Titles(1).Assign(BsdLabel(kLabelNewShip));
    bsd.Titles(5).Assign(std::wstring_view(shortName).substr(0, 8));
    bsd.TypeCodes(1) = 1;
    bsd.TypeCodes(2) = 1;
    bsd.TypeCodes(3) = 1;
    bsd.TypeCodes(5) = 1;
    bsd.TypeCodes(6) = 20;
    bsd.TypeCodes(7) = 1;
    return bsd;
}

bool IsBsdDefined(const BasicShipData& bsd) {
    return bsd.MainData(1) > 0 && bsd.MainData(2) > 0 && bsd.MainData(3) > 0 && bsd.MainData(9) > 0;
}

}  // namespace corvane
