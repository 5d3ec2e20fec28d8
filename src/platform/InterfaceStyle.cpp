#include "platform/InterfaceStyle.h"

#include "files/modOptionsForm.h"
#include "model/Globals.h"

#include <QApplication>
#include <QFont>

#include <optional>
#include <string>
#include <utility>

namespace corvane {

void ApplyInterfaceFont() {
    // The start-up choice, kept for when the settings go back to Automatic.
    static std::optional<std::pair<std::string, double>> automatic;
    if (!automatic) {
        automatic.emplace(gUIFontName, gUIFontSize);
    }
    const InterfaceFont chosen = ReadInterfaceFont();
    gUIFontName = chosen.name.empty() ? automatic->first : chosen.name;
    gUIFontSize = chosen.size > 0 ? chosen.size : automatic->second;
    QFont font(QString::fromStdString(gUIFontName));
    font.setPointSizeF(gUIFontSize);
    QApplication::setFont(font);
}

} // namespace corvane
