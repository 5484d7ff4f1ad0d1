#pragma once

#include <QChar>
#include <QString>
#include <QStringView>

namespace xa518 {

/// The family's small helpers, one object made first of all and kept for the whole run. Flags that no caller sets are
/// not carried.
class ObjetoUtil {
  public:
    [[nodiscard]] static bool ExisteArchivo(const QString& ruta);

    /// Eleven digits, the last of which is the check digit of the first ten.
    [[nodiscard]] static bool ValidaRUC(QStringView numero);

    /// Filled with blanks on the right, or on the left, up to `ancho`; never cut.
    [[nodiscard]] static QString AlineaIzquierda(const QString& texto, int ancho);
    [[nodiscard]] static QString AlineaDerecha(const QString& texto, int ancho);
    /// The same with another filler.
    [[nodiscard]] static QString CompletaDerecha(const QString& texto, int ancho, QChar relleno);
    [[nodiscard]] static QString CompletaIzquierda(const QString& texto, int ancho, QChar relleno);

    /// True when `fecha` lies inside the limits, limits included; all `dd/mm/yyyy`. False for a text that is no date.
    [[nodiscard]] static bool FechaEnRango(QStringView fecha, QStringView desde, QStringView hasta);

    /// Not empty, digits only.
    [[nodiscard]] static bool ValidaNumeroDoc(QStringView texto);
    /// Not empty, letters A to Z and a to z and digits only.
    [[nodiscard]] static bool ValidaTextoDoc(QStringView texto);
    /// Letters, accented vowels, digits, blank and the punctuation of names and addresses; no "ñ" (see `QuitaEnie`).
    [[nodiscard]] static bool ValidaCaracteres(QStringView texto);
    /// Ñ becomes N, ñ becomes n.
    [[nodiscard]] static QString QuitaEnie(QString texto);

    // A key is its character's code: the fields ask these of what is typed, the import of each character of a line.

    /// A digit or a control key, from 1 to 31.
    [[nodiscard]] static bool EsTeclaNumero(int tecla);
    /// Letters A to Z and a to z, digits, blank, Backspace and Enter.
    [[nodiscard]] static bool EsTeclaValida(int tecla);
};

} // namespace xa518
