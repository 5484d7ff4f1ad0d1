#pragma once

#include <QString>
#include <QVariantList>

namespace xa518 {

class Base;

/// Brings the rows of the readable catalogue into the base: `PARAM` in its fixed columns, the error texts, the users.
class InstaladorCatalogo {
  public:
    struct Resumen {
        int nuevas = 0;
        int cambiadas = 0;
        int conservadas = 0;
    };

    explicit InstaladorCatalogo(Base& base, QString carpeta = QStringLiteral(":/catalogo"))
        : m_base(&base), m_carpeta(std::move(carpeta)) {}

    /// Adds what is missing and brings changed rows up to date, in one transaction. Nothing is deleted: the family's
    /// other modules keep rows in the same catalogues. A user who is there already keeps his kind.
    Resumen Instala();

  private:
    /// How a table's row is found, added and changed. Values come first in the last two, then the key.
    struct Sentencias {
        QString lee;
        QString agrega;
        QString cambia; ///< empty where a row that is there stays as it is
    };

    void InstalaParam();
    void InstalaErrores();
    void InstalaUsuarios();
    void Pon(const Sentencias& sentencias, const QVariantList& clave, const QVariantList& valores);
    [[nodiscard]] QString Ruta(const QString& archivo) const { return m_carpeta + u'/' + archivo; }

    Base* m_base;
    QString m_carpeta;
    Resumen m_resumen;
};

} // namespace xa518
