#pragma once

#include "form518/LawBands.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace xa518 {

class Base;

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
    CatalogoTasas(Base& base, Periodo periodoDeclarado);

    /// The row of `clase` in force in `mes`; "0" and "0" when none is: no class, no month, or one before the first row.
    /// Raises `Desbordamiento` when a class has more than 19 rows.
    [[nodiscard]] FilaTasa Busca(const QString& clase, Periodo mes);
    /// Whether that row has been read before, so that the base isn't asked for it.
    [[nodiscard]] bool Conoce(const QString& clase, Periodo mes) const;

  private:
    [[nodiscard]] QStringList Vigencias(const QString& clase) const;
    [[nodiscard]] FilaTasa LeeFila(const QString& clase, const QString& desde) const;

    Base* m_base;
    Periodo m_periodoDeclarado;
    QHash<QString, FilaTasa> m_leidas;
};

} // namespace xa518
