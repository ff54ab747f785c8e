#include "devctrl/sds/item_source.h"

namespace tarn::vyxpn {

const char* itemOriginName(ItemOrigin origin) {
    switch (origin) {
        case ItemOrigin::Part:
            return "part";
        case ItemOrigin::Package:
            return "package";
        case ItemOrigin::Device:
            return "device";
        case ItemOrigin::Family:
            return "family";
        case ItemOrigin::PartTable:
            return "part table";
        case ItemOrigin::None:
            break;
    }
    return "";
}

}  // namespace tarn::vyxpn
