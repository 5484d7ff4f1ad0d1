#pragma once

#include <QProxyStyle>

namespace xa518 {

/// The style of the person's desktop, whose sign for what doesn't fit in a bar is only made once it shows. Every menu
/// and tool bar asks for that sign when it is made, and the first picture that a program reads loads all that the
/// toolkit has to read pictures with: a tenth of a start, for a sign that hardly ever shows.
/// What is marked stays so where the keyboard is elsewhere: some desktops grey it then, as they grey every other row.
class EstiloDeLaCasa final : public QProxyStyle {
    Q_OBJECT
  public:
    [[nodiscard]] QIcon standardIcon(StandardPixmap dibujo, const QStyleOption* opcion,
                                     const QWidget* control) const override;
    using QProxyStyle::polish;
    void polish(QPalette& paleta) override;
};

} // namespace xa518
