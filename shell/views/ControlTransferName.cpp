// SPDX-License-Identifier: MIT
#include "shell/views/ControlTransferName.h"

namespace Kova::Shell {

QString nameOf(ControlTransfer transfer) {
    switch (transfer) {
    case ControlTransfer::Next:
        return "next";
    case ControlTransfer::True:
        return "true";
    case ControlTransfer::False:
        return "false";
    case ControlTransfer::Back:
        return "back";
    case ControlTransfer::Jump:
        break;
    }
    return "jump";
}

} // namespace Kova::Shell
