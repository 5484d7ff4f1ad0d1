#pragma once

#include <QString>

#include <functional>

class QLineEdit;

namespace xa518 {

// Which keys a field of each kind takes, as rules over a key's character code and attached to a field.

/// What a field of digits says of the others.
[[nodiscard]] QString PasanNumeros();

/// Digits and Backspace.
void SoloDigitos(QLineEdit& campo, const QString& pasan = PasanNumeros());

/// The key when it is a digit or a control key (below 32), with `conPunto` also the point; otherwise 0.
/// A second point passes: the amount fields drop it themselves.
[[nodiscard]] int FiltraTeclaNumero(int tecla, bool conPunto = false);
[[nodiscard]] int FiltraTeclaMayuscula(int tecla);

/// `FiltraTeclaNumero` decides.
void SoloNumero(QLineEdit& campo);

/// Upper case, then letters, digits, blank and Backspace.
void SoloNombre(QLineEdit& campo);

/// How much of an amount can be typed: with a point, and without.
struct LimitesDeMonto {
    int conPunto = 15;
    int sinPunto = 12;
};

/// `FiltraTeclaNumero` with the point, one point at most, and the limits, asked at each key; by default always the
/// same. A point that is selected gives its place.
void SoloMonto(QLineEdit& campo, std::function<LimitesDeMonto()> limites = {});

/// What the series filter looks at.
struct EstadoSerie {
    QString queda; ///< the text without what is selected, which the key replaces
    bool haySeleccion = false;
    int posicion = 0; ///< where the key goes, from 0
};

/// The series key filter as a rule: upper case, never a point; letters by position only where `conLetras`, otherwise
/// digits and Backspace.
[[nodiscard]] int FiltraTeclaSerie(int tecla, const EstadoSerie& estado, bool conLetras);

/// The same on a field; `conLetras` is asked at each key. Enter goes on only from a field that isn't empty.
void SoloSerie(QLineEdit& campo, std::function<bool()> conLetras);

} // namespace xa518
