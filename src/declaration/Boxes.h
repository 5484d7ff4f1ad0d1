#pragma once

#include "values/Decimal.h"

#include <QString>

#include <array>

namespace xa518 {

/// The six amount boxes: 401 perceptions made, 402 prior payments, 403 perception to pay, 404 interest on arrears,
/// 405 total debt, 410 amount to pay. In this order they are saved.
inline constexpr std::array<int, 6> kCasillasMonto = {401, 402, 403, 404, 405, 410};

/// As many digits as a box takes.
inline constexpr int kCifrasDeCasilla = 12;

/// What can be typed into a box: digits, and at least one.
[[nodiscard]] bool EsMontoDeCasilla(QStringView texto);

/// The whole number that a shown box stands for: separators accepted, parentheses negative, decimals rounded.
[[nodiscard]] Decimal ValorCasilla(const QString& texto);

/// What a box shows when the user enters it, to edit plain digits.
[[nodiscard]] QString TextoAlEntrar(int casilla, const QString& texto);
/// What it shows again when he leaves it: with separators, box 402 in parentheses.
[[nodiscard]] QString TextoAlSalir(int casilla, const QString& texto);
/// What it shows of a stored value.
[[nodiscard]] QString TextoDeGuardado(int casilla, const QString& valor);

/// The texts of the six boxes and their arithmetic, which runs at every change as if the user typed it.
class Montos {
  public:
    [[nodiscard]] static bool EsDeMonto(int casilla);
    /// The box as shown; empty for one that wasn't filled.
    [[nodiscard]] const QString& Texto(int casilla) const;

    /// Puts a text and follows it through: 401 or 402 give 403, 403 or 404 give 405, 410 gives the amount to pay.
    void Cambia(int casilla, const QString& texto);

    /// What box 410 hands to the payment control.
    [[nodiscard]] const QString& ImportePagar() const { return m_importePagar; }

  private:
    void Pon(int casilla, const QString& texto);
    void Calcular403();
    void Calcular405();
    void CalcularTotal();

    std::array<QString, kCasillasMonto.size()> m_textos;
    QString m_importePagar;
};

} // namespace xa518
