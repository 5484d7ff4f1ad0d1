#pragma once

#include "data/BasePlace.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>

namespace xa518 {

/// A connection to a server for what is done with its databases as wholes, and not in one of them. Texts are the
/// server's own SQL. Raises `ErrorBase`.
class MandoDeServidor {
  public:
    enum class Lugar {
        EnLaBase, ///< the database that the text of the connection names
        AlLado,   ///< the server's own one, so that the named one may be renamed
    };
    MandoDeServidor(const QString& conexion, Lugar lugar);
    MandoDeServidor(const MandoDeServidor&) = delete;
    MandoDeServidor& operator=(const MandoDeServidor&) = delete;
    ~MandoDeServidor();

    /// The rows of a query, null as the empty text.
    QList<QStringList> Pide(const QString& sql);
    /// The first value of the first row; empty without one.
    QString PideUno(const QString& sql);

    /// The database that the text of the connection names, or means when it names none.
    [[nodiscard]] const QString& Nombrada() const { return m_nombrada; }
    [[nodiscard]] bool Existe(const QString& base);
    /// Whether some other program has a connection to that database.
    [[nodiscard]] bool EstaEnUso(const QString& base);
    /// An empty one.
    void Crea(const QString& base);
    /// With whoever is still inside.
    void Quita(const QString& base);

  private:
    struct Conexion;
    std::unique_ptr<Conexion> m_conexion;
    QString m_nombrada;
};

/// The text of the connection to another database of the same server.
[[nodiscard]] QString ConexionConBase(const LugarDeBase& lugar, const QString& base);

/// A name or a text as it stands in the server's SQL.
[[nodiscard]] QString NombreSql(const QString& nombre);
[[nodiscard]] QString TextoSql(const QString& texto);

} // namespace xa518
