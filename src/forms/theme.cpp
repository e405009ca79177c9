#include "forms/theme.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>
#include <QVariant>

#include "forms/qt_text.h"
#include "store/settings.h"

namespace snippetarium {

namespace {

constexpr std::string_view kSetting = "theme";
constexpr std::string_view kLight = "light";
constexpr std::string_view kDark = "dark";
/// The name of the desktop's style, kept with the application while another style is in use.
constexpr const char* kDesktopStyle = "snippetariumDesktopStyle";

struct Colours {
    QRgb window, text, base, alternateBase, button, light, mid, dark, highlight, link, visitedLink;
    QRgb disabledText;
};

// clang-format off
constexpr Colours kLightColours = {
    0xffeff1f4, 0xff1d2126, 0xffffffff, 0xfff6f7f9, 0xfff4f5f7, 0xffffffff, 0xffc3c9d1, 0xff9aa3af,
    0xff2f6fbf, 0xff1f5fae, 0xff6a4ba3, 0xff878f99,
};
constexpr Colours kDarkColours = {
    0xff353a41, 0xffe6e9ed, 0xff1b1e22, 0xff22262b, 0xff454b54, 0xff565d67, 0xff4a5059, 0xff17191c,
    0xff3a78c4, 0xff7ab0f2, 0xffb79cf0, 0xff8b939e,
};
// clang-format on

QPalette PaletteOf(const Colours& colours) {
    QPalette palette;
    palette.setColor(QPalette::Window, colours.window);
    palette.setColor(QPalette::Base, colours.base);
    palette.setColor(QPalette::AlternateBase, colours.alternateBase);
    palette.setColor(QPalette::ToolTipBase, colours.button);
    palette.setColor(QPalette::Button, colours.button);
    palette.setColor(QPalette::Light, colours.light);
    palette.setColor(QPalette::Midlight, colours.button);
    palette.setColor(QPalette::Mid, colours.mid);
    palette.setColor(QPalette::Dark, colours.dark);
    palette.setColor(QPalette::Shadow, QColor(0, 0, 0));
    palette.setColor(QPalette::Highlight, colours.highlight);
    palette.setColor(QPalette::HighlightedText, QColor(255, 255, 255));
    palette.setColor(QPalette::BrightText, QColor(255, 255, 255));
    palette.setColor(QPalette::Link, colours.link);
    palette.setColor(QPalette::LinkVisited, colours.visitedLink);
    palette.setColor(QPalette::PlaceholderText, colours.disabledText);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, colours.text);
        palette.setColor(QPalette::Disabled, role, colours.disabledText);
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours.mid);
    // The style draws the text of a disabled menu entry twice, once in this colour and a bit aside.
    palette.setColor(QPalette::Disabled, QPalette::Light, colours.base);
    return palette;
}

}  // namespace

Theme ReadTheme(Database& db) {
    const std::string name = Setting(db, kSetting);
    if (name == kLight) return Theme::Light;
    return name == kDark ? Theme::Dark : Theme::Desktop;
}

void StoreTheme(Database& db, Theme theme) {
    const std::string_view names[] = {"", kLight, kDark};
    StoreSetting(db, kSetting, names[static_cast<std::size_t>(theme)]);
}

void ApplyTheme(Theme theme) {
    if (!qApp->property(kDesktopStyle).isValid()) {
        qApp->setProperty(kDesktopStyle, QApplication::style()->name());
    }
    if (theme == Theme::Desktop) {
        const QString style = qApp->property(kDesktopStyle).toString();
        if (QApplication::style()->name() != style) QApplication::setStyle(style);
        QApplication::setPalette(QPalette());
        return;
    }
    // Only this style takes all its colours from the palette.
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(PaletteOf(theme == Theme::Dark ? kDarkColours : kLightColours));
}

bool IsDark() {
    const QPalette palette = QApplication::palette();
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

}  // namespace snippetarium
