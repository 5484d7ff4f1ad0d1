#pragma once

#include "family/FormDescription.h"

#include <QString>
#include <QVariantList>

namespace xa518 {

class Base;

/// Brings the rows of the readable catalogues into the base: `PARAM` in its fixed columns, those that all forms share
/// and those of each form; the error texts, the users.
class InstaladorCatalogo {
  public:
    struct Resumen {
        int nuevas = 0;
        int cambiadas = 0;
        int conservadas = 0;
    };

    explicit InstaladorCatalogo(Base& base) : m_base(&base) {}

    /// Adds what is missing and brings changed rows up to date, in one transaction. Nothing is deleted: the family's
    /// other modules keep rows in the same catalogues. A user who is there already keeps his kind.
    Resumen Instala(const Formularios& formularios);

  private:
    /// How a table's row is found, added and changed. Values come first in the last two, then the key.
    struct Sentencias {
        QString lee;
        QString agrega;
        QString cambia; ///< empty where a row that is there stays as it is
    };

    void InstalaParam(const QList<Catalogado>& catalogos, const QString& carpeta);
    void InstalaErrores();
    void InstalaUsuarios();
    void Pon(const Sentencias& sentencias, const QVariantList& clave, const QVariantList& valores);

    Base* m_base;
    Resumen m_resumen;
};

} // namespace xa518
