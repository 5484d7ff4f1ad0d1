#pragma once

#include "app/Forms.h"
#include "batch/Batch.h"
#include "data/Base.h"
#include "family/Configuration.h"
#include "launcher/Installation.h"
#include "platform/Clock.h"
#include "support/ServerInstallation.h"
#include "support/Test.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace xa518::prueba {

inline const QString kRuc = QStringLiteral("20990518018"); // the sample company
inline const QString kClave = QStringLiteral(" --ruc 20990518018 --periodo 202609 --hoy 21/11/2026");

/// An installation with the sample company in a folder of its own.
class Batch : public testing::Test {
  protected:
    Batch()
        : m_antes(QDir::currentPath()), m_perfil(m_carpeta.filePath(u"conf/XA000.INI"_s)), m_lugar(m_perfil, Casa()) {
        Instalacion instalacion(Casa(), m_perfil, FormulariosConocidos());
        (void)instalacion.Instala(u"USUARIO"_s);
        (void)instalacion.InstalaEjemplo(RelojSistema());
    }
    ~Batch() override { QDir::setCurrent(m_antes); }

    [[nodiscard]] QString Casa() const { return m_carpeta.filePath(u"casa"_s); }
    [[nodiscard]] QString Ejemplo() const { return Casa() + u"/EJEMPLO"_s; }
    [[nodiscard]] QString ArchivoDelMes() const { return Ejemplo() + u"/0518"_s + kRuc + u"202609.TXT"_s; }

    int Corre(const QString& linea) {
        m_salida.clear();
        m_errores.clear();
        QTextStream salida(&m_salida);
        QTextStream errores(&m_errores);
        return EjecutaLote(QStringList{u"xa518-lote"_s} + linea.split(u' ', Qt::SkipEmptyParts),
                           {m_perfil, salida, errores, m_enTerminal});
    }
    [[nodiscard]] QJsonObject Json() const { return QJsonDocument::fromJson(m_salida.toUtf8()).object(); }
    [[nodiscard]] QString Casilla(const QString& casilla) const {
        return Json()[u"casillas"_s].toObject()[casilla].toString();
    }
    /// Where the runs have their work tables: each takes the seat that the one before has left.
    static std::optional<EsquemaDeTrabajo> Puesto() {
        return HayServidorDePrueba() ? EsquemaDeTrabajo::De(u"puesto_1") : std::nullopt;
    }
    [[nodiscard]] qint64 Cuenta(const QString& tabla) const {
        const auto base = Base::Abre({m_lugar.Ruta(), Puesto()});
        Registros fila = base->Lee(u"SELECT count(*) FROM "_s + tabla);
        return fila.Siguiente() ? fila.Entero(0) : -1;
    }
    void EscribeArchivo(const QByteArray& bytes) const { EscribeEn(ArchivoDelMes(), bytes); }

    QTemporaryDir m_carpeta;
    QString m_antes;
    ArchivoPerfil m_perfil;
    LugarDeInstalacion m_lugar;
    QString m_salida;
    QString m_errores;
    bool m_enTerminal = false;
};

} // namespace xa518::prueba
