#pragma once

#include "family/Process.h"
#include "launcher/Backups.h"
#include "launcher/CommandLine.h"
#include "launcher/Moving.h"
#include "launcher/Sending.h"
#include "platform/ProfileFile.h"

namespace xa518 {

/// The installation in force, opened for one piece of work at a time: between two of them another program may change,
/// hold or replace the base.
class Sesion {
  public:
    explicit Sesion(const EntornoConsola& entorno);

    /// The profile file names one; whether its base is there and sound is another question.
    [[nodiscard]] bool HayInstalacion() const;
    /// Where it lies, or where it would go.
    [[nodiscard]] QString Carpeta() const;
    /// Installs there and returns what was done, a line for each thing. Raises `Error`.
    [[nodiscard]] QStringList Instala(bool conEjemplo);

    /// What is new in this version of the programs, the first time that it is asked for after an update; otherwise
    /// empty.
    [[nodiscard]] QString TomaNovedades() const;

    /// Raises `Error`.
    [[nodiscard]] std::unique_ptr<Base> Abre();

    /// What a window of the reports' kind works with, its base open. Raises `Error`.
    [[nodiscard]] Proceso AbreProceso();

    /// The dated copies of the base; they need no base that opens. Raises `Error` when nothing is installed.
    [[nodiscard]] Respaldos Copias();

    /// A move of the base to another place. Raises `Error` when nothing is installed.
    [[nodiscard]] Mudanza MudanzaA(const QString& destino);

    /// What to tell before the question whether to send. Raises `Error`.
    [[nodiscard]] RevisionEnvio RevisaEnvio(const ClaveDeclaracion& clave);

    /// Sends a declaration, see `Envio`, a copy of the base being made first. Refused or raised, nothing has been sent.
    [[nodiscard]] ResultadoEnvio Envia(const ClaveDeclaracion& clave, OtroOriginal otro);

    [[nodiscard]] const Formularios& LosFormularios() const { return m_entorno.formularios; }
    /// Beneath a change made now.
    [[nodiscard]] Firma SuFirma() const { return m_proceso.SuFirma(); }
    /// As they stood in the profile file at the last opening.
    [[nodiscard]] const QString& Usuario() const { return m_proceso.sysUser; }
    [[nodiscard]] const QString& RutaBase() const { return m_proceso.rutaBase; }
    [[nodiscard]] const QString& RutaInformes() const { return m_proceso.rutaRPT; }

  private:
    void Lee();

    EntornoConsola m_entorno;
    ArchivoPerfil m_perfil;
    Proceso m_proceso;
    QString m_verificada; ///< the installation whose account has been checked
};

/// A failure in words for the person; its detail goes to the standard error. What a server refuses tells by itself what
/// to do.
[[nodiscard]] QString TextoDeFalla(const Error& error, const QString& rutaBase);

/// Something of the installation is missing or of an earlier version, and installing over it puts that right.
[[nodiscard]] bool LoArreglaInstalar(const Error& error);

} // namespace xa518
