#pragma once

#include "platform/ProfileFile.h"
#include "support/ServerBase.h"

namespace xa518::prueba {

/// Where an installation has its base: in its folder, or in an empty database of the tests' server, of which the
/// profile file tells before there is anything.
class LugarDeInstalacion {
  public:
    LugarDeInstalacion(const ArchivoPerfil& perfil, const QString& carpeta)
        : m_ruta(carpeta + QStringLiteral("/XA000.DB")) {
        if (!HayServidorDePrueba())
            return;
        m_servidor = BaseEnServidor::Vacia();
        m_ruta = m_servidor->Texto();
        perfil.Escribe(QStringLiteral("Options"), QStringLiteral("SysPath"), carpeta + u'/');
        perfil.Escribe(QStringLiteral("Options"), QStringLiteral("DBName"), m_ruta);
    }

    /// As `Base::Abre` takes it.
    [[nodiscard]] const QString& Ruta() const { return m_ruta; }

  private:
    std::unique_ptr<BaseEnServidor> m_servidor;
    QString m_ruta;
};

} // namespace xa518::prueba
