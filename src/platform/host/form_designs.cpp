#include "platform/host/form_designs.h"

#include <QWidget>
#include <algorithm>

#include "ui_ConfigScrn.h"
#include "ui_frmAbout.h"
#include "ui_frmBackScatter.h"
#include "ui_frmCType.h"
#include "ui_frmClouds.h"
#include "ui_frmSetLog.h"
#include "ui_frmSkyCondSettings.h"
#include "ui_frmStart.h"
#include "ui_frmStatus.h"

namespace cumeron {
namespace {

struct Design {
    const char* form;
    void (*setUp)(QWidget* client);
};

template <class Widgets>
void SetUp(QWidget* client) {
    Widgets().setupUi(client);
}

constexpr Design Designs[] = {
    {"ConfigScrn", SetUp<Ui::ConfigScrn>},
    {"frmAbout", SetUp<Ui::frmAbout>},
    {"frmBackScatter", SetUp<Ui::frmBackScatter>},
    {"frmCType", SetUp<Ui::frmCType>},
    {"frmClouds", SetUp<Ui::frmClouds>},
    {"frmSetLog", SetUp<Ui::frmSetLog>},
    {"frmSkyCondSettings", SetUp<Ui::frmSkyCondSettings>},
    {"frmStart", SetUp<Ui::frmStart>},
    {"frmStatus", SetUp<Ui::frmStatus>},
};

}  // namespace

bool SetUpDesign(const std::string& form, QWidget* client) {
    const auto* design = std::find_if(std::begin(Designs), std::end(Designs),
                                      [&](const Design& row) { return form == row.form; });
    if (design == std::end(Designs)) return false;
    design->setUp(client);
    return true;
}

std::vector<std::string> DesignedForms() {
    std::vector<std::string> names;
    for (const Design& design : Designs) names.emplace_back(design.form);
    return names;
}

}  // namespace cumeron
