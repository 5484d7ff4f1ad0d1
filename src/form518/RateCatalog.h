#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace xa518 {

class Base;

/// Stretches of declared periods in which the law asks different questions of a sale.
enum class Banda {
    A, ///< 200501 to 200802
    B, ///< 200803 to the period of catalogue "830": asks for the earthquake zone
    C, ///< any other period, so also one before 200501
};

/// Compares as text. An empty `fechaPrimerIgv` leaves no period in band B.
[[nodiscard]] Banda BandaDe(const QString& periodoDeclarado, const QString& fechaPrimerIgv);

/// A row of catalogue "953": the rates of one class from one month on.
struct FilaTasa {
    QString factor; ///< fraction of one, as text, by the declared period before or from 200504
    QString tasa;   ///< the rate that is shown and stored
};

/// Perception rates by class and month. Values are read once per class and month and kept, since they can't change
/// while a run lasts.
class CatalogoTasas {
  public:
    /// `periodoDeclarado` decides which of the row's two factors is taken.
    CatalogoTasas(Base& base, QString periodoDeclarado);

    /// The row of `clase` in force in `mes` (`yyyymm`); "0" and "0" when none is: no class, a month before the first
    /// row, or a text that is no month. Raises `Desbordamiento` when a class has more than 19 rows.
    [[nodiscard]] FilaTasa Busca(const QString& clase, const QString& mes);

  private:
    [[nodiscard]] QStringList Vigencias(const QString& clase) const;
    [[nodiscard]] FilaTasa LeeFila(const QString& clase, const QString& desde) const;

    Base* m_base;
    QString m_periodoDeclarado;
    QHash<QString, FilaTasa> m_leidas;
};

} // namespace xa518
