#include "acquisition/ScanRadii.h"

#include "iso484/clsISO484.h"
#include "model/NumberFormat.h"
#include "model/clsCorvane.h"

namespace corvane {

void RefreshRadiusButtons(const RadiusButtonRules& rules, const std::array<double, 8>& radialPositions,
                          std::array<PanelView, 8>& radius, PanelView& tip) {
    for (std::size_t i = 0; i < radius.size(); ++i) {
        radius[i].caption = RadiusCaption(radialPositions[i]);
    }
    if (rules.scanState == 4) {
        for (PanelView& button : radius) {
            button.clickable = false;
            button.pressed = false;
        }
    }
    if (rules.scanMode == 1 || rules.radiusEncoderType == 0) {
        for (std::size_t i = 0; i < radius.size(); ++i) {
            radius[i].clickable = true;
            radius[i].pressed = static_cast<int>(i) == rules.activeRadius;
        }
    }
    if (rules.hasScans && rules.scanState != 0) {
        // Where the arm itself chooses the radius, or nothing may be scanned, no button takes a click.
        const bool click = !(rules.scanState == 4 || (rules.scanMode == 2 && rules.radiusEncoderType == 1));
        const int cls = rules.isoClassIndex;
        for (int i = 0; i < static_cast<int>(radius.size()); ++i) {
            PanelView& button = radius[static_cast<std::size_t>(i)];
            button.enabled = true;
            button.clickable = click;
            if (cls == 3 && rules.isoStandardIndex == 1) {
                button.enabled = i == 1 || i == 3 || i == 5;
            } else if ((cls == 2 || cls == 3) && (i == 0 || i >= 6)) {
                button.clickable = false;
            }
        }
        if (!rules.innerRadius) {
            radius[7].enabled = false;
            radius[7].pressed = false;
        }
        tip.enabled = true;
        tip.clickable = true;
        tip.caption = "TIP";
    }
    if (!rules.hasScans || rules.scanState == 0) {
        for (PanelView& button : radius) {
            button.enabled = false;
        }
        tip.enabled = false;
        tip.clickable = false;
    }
}

RadiusButtonRules RadiusRulesOf(const clsISO484& iso, int scanState, std::int32_t scanMode,
                                std::int16_t radiusEncoderType, bool hasScans, int activeRadius) {
    RadiusButtonRules rules;
    rules.scanState = scanState;
    rules.scanMode = scanMode;
    rules.radiusEncoderType = radiusEncoderType;
    rules.hasScans = hasScans;
    rules.activeRadius = activeRadius;
    rules.isoClassIndex = iso.ISOClassIndex();
    rules.isoStandardIndex = iso.ISOStandardIndex();
    rules.innerRadius = iso.ISOIncludeInnerRadiusIndex() == 1;
    return rules;
}

std::string RadiusCaption(double fraction) {
    return "R" + FormatNumber(fraction * 100, "0");
}

std::string RadiusPercentText(double fraction) {
    return FormatNumber(fraction * 100, "#R");
}

double RadiusWindowHalfWidth(const clsCorvane& project, const clsISO484& iso) {
    double width = project.MarkedDiameter() / 2 * iso.ScrewRadiusPercent();
    if (iso.ISOStandardIndex() == 1 && iso.ScrewRadiusTol() > 0 && width < iso.ScrewRadiusTol()) {
        width = iso.ScrewRadiusTol();
    }
    return width;
}

std::array<double, 8> NominalRadii(const clsCorvane& project, const std::array<double, 8>& radialPositions) {
    std::array<double, 8> nominal{};
    for (std::size_t i = 0; i < nominal.size(); ++i) {
        nominal[i] = project.MarkedDiameter() / 2 * radialPositions[i];
    }
    return nominal;
}

int LastRadiusOfBlade(const clsISO484& iso) {
    const int cls = iso.ISOClassIndex();
    return cls >= 2 && cls <= 4 ? 1 : 0;
}

std::vector<int> ScanRadiusOrder(const clsISO484& iso, const std::array<double, 8>& radialPositions) {
    std::array<PanelView, 8> radius{};
    PanelView tip;
    RefreshRadiusButtons(RadiusRulesOf(iso, 1, 2, 1, true, 0), radialPositions, radius, tip);
    std::vector<int> order;
    for (int i = static_cast<int>(radius.size()) - 1; i >= LastRadiusOfBlade(iso); --i) {
        if (radius[static_cast<std::size_t>(i)].enabled) {
            order.push_back(i);
        }
    }
    return order;
}

} // namespace corvane
