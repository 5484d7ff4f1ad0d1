#pragma once

#include <QLineEdit>

namespace xa518 {

/// A field of digits with fixed slashes. What is still to be typed shows, and reads, as "_".
class CampoMascara : public QLineEdit {
    Q_OBJECT
  public:
    /// The text with its slashes and blanks: "__/____" when nothing was typed yet.
    [[nodiscard]] QString text() const { return displayText(); }

    /// Takes a text with its slashes, blanks as "_"; the empty text empties the field.
    void setText(const QString& texto);

    /// Nothing is left to be typed.
    [[nodiscard]] bool EstaCompleto() const { return !displayText().contains(u'_'); }

    /// Room for all its digits: a date of which a part is out of sight is no date.
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    CampoMascara(const QString& mascara, QWidget* padre);
    void focusInEvent(QFocusEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
};

/// A period, `mm/yyyy`.
class CampoPeriodo : public CampoMascara {
    Q_OBJECT
  public:
    explicit CampoPeriodo(QWidget* padre = nullptr);
};

/// A date, `dd/mm/yyyy`.
class CampoFecha : public CampoMascara {
    Q_OBJECT
  public:
    explicit CampoFecha(QWidget* padre = nullptr);
};

} // namespace xa518
