#pragma once

#include "data/Base.h"
#include "support/ServerBase.h"
#include "support/Test.h"

#include <memory>

namespace xa518::prueba {

/// Makes a base with the shipped tables and nothing in them.
std::unique_ptr<Base> CreaBase(const QString& ruta);

/// A base in a folder of its own, or on the server of the tests beside that folder, gone with it.
class BaseTemporal {
  public:
    BaseTemporal();

    [[nodiscard]] Base& operator*() const { return *m_base; }
    [[nodiscard]] Base* operator->() const { return m_base.get(); }
    /// Lets go of the file, which Windows lets nobody replace or take away while it is open.
    void Cierra() { m_base.reset(); }
    [[nodiscard]] QString Carpeta() const { return m_carpeta.path(); }
    /// The file, or the text of the connection.
    [[nodiscard]] QString Ruta() const { return m_enServidor ? m_enServidor->Texto() : Archivo(); }
    /// What the profile file says of it: the folder, empty on a server, and the name.
    [[nodiscard]] QString DBPath() const { return m_enServidor ? QString() : Carpeta() + u'/'; }
    [[nodiscard]] QString DBName() const { return m_enServidor ? m_enServidor->Texto() : QStringLiteral("XA.DB"); }

    void Param(const QString& numero, const QString& argumento, const QString& funcion, int correl = 0) const;
    /// A row of the columns that matter; the others that can't be null get something.
    void Agrega(const QString& tabla, QMap<QString, QVariant> valores) const;

    /// Runs a statement before each row of the table that is deleted.
    void AlBorrar(const QString& tabla, const QString& sql) const;

    /// The rows of a query, columns joined by "|", null as "<null>".
    [[nodiscard]] QStringList Filas(const QString& sql, const QVariantList& valores = {}) const;

  private:
    [[nodiscard]] QString Archivo() const { return m_carpeta.filePath(QStringLiteral("XA.DB")); }

    QTemporaryDir m_carpeta;
    std::unique_ptr<BaseEnServidor> m_enServidor = BaseEnServidor::ConTablas();
    std::unique_ptr<Base> m_base;
};

/// A text of blanks with pieces put at their positions, counted from 1: the fixed columns of the catalogue.
struct Pieza {
    int posicion;
    QString texto;
};
[[nodiscard]] QString Funcion(const QList<Pieza>& piezas);

/// The sample company.
inline const QString kRucMuestra = QStringLiteral("20990518018");

/// The tables of a registered declaration; those of its sent copies begin with an "H".
inline const QStringList kTablas{QStringLiteral("CAB"),        QStringLiteral("DET"),
                                 QStringLiteral("F518PCAB"),   QStringLiteral("F518PDET"),
                                 QStringLiteral("F518PDETVC"), QStringLiteral("F518PDETCP")};

/// Registers the head of a declaration of a company, in the state 0 (clean) or 9.
void AgregaCabecera(Base& base, const QString& ruc, const QString& periodo, int estado);

/// Takes the rows out of an index of a base with its tables: only a check of the whole sees that.
void RompeIndice(const QString& ruta);

/// Everything that is stored of a declaration, registered tables only, in one text.
[[nodiscard]] QString Retrato(Base& base);

} // namespace xa518::prueba
