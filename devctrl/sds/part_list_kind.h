// SPDX-License-Identifier: MIT
#pragma once
// Which of a family's part lists a query asks for.

namespace tarn::vyxpn {

enum class PartListKind { Devices, Packages, Speeds, Conditions };

}  // namespace tarn::vyxpn
