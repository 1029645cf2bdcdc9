#include "shell/sky_window.h"

#include "workstation.h"

namespace cumeron {

FrmSkyCond::FrmSkyCond() {
    Name = "frmSkyCond";
    Caption = "Sky Condition";
    Left = Top = 0;
    Width = 5256;
    Height = 4356;
}

ControlList FrmSkyCond::Controls() {
    ControlList list = {{"lblCT_2", -1, "", &lblCT_2},
                        {"lblDateTime", -1, "", &lblDateTime},
                        {"lblStatus", -1, "", &lblStatus}};
    for (std::size_t i = 0; i < CloudValue.size(); ++i) {
        const int index = static_cast<int>(i);
        list.push_back({"lblCloudtext", index, "", &lblCloudtext[i]});
        list.push_back({"CloudValue", index, "", &CloudValue[i]});
    }
    return list;
}

void FrmSkyCond::Reset() { *this = FrmSkyCond(); }

}  // namespace cumeron
