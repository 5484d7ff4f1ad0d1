#pragma once

#include "data/Base.h"
#include "family/ChangeLog.h"
#include "family/DeclarationKey.h"
#include "family/FormDescription.h"

#include <QString>

#include <memory>

namespace xa518 {

class Reloj;

/// What a program has read of its configuration, and the interfaces of the platform that it works with.
struct Configurado {
    const Reloj& reloj;
    Formularios formularios; ///< all that the program knows
    QString numFormulario;

    // From XA000.INI. Those that no reader is named of are kept for the family: docs/decisions/rituals-kept.md.
    QString sysPath{}; ///< installation folder, its trailing separator as it stands in the file
    QString sysVersion{};
    QString sysUser{};  ///< whose rows of CONT, CLAVES and SPOOL are meant
    QString rutaBase{}; ///< full name of the database
    QString rutaMenu{};
    QString rutaTMPBarra{}; ///< with its separator
    QString rutaTMP{};      ///< without separator, and so are the report and the log names that begin with `rutaRPT`
    QString rutaRPT{};
    QString rutaBMP{};
    Periodo fechaPrimerIgv{}; ///< of catalogue "830"; none when the row is missing

    /// Beneath a change made now.
    [[nodiscard]] Firma SuFirma() const { return FirmaDe(sysUser, reloj); }
};

/// What holds for the whole program: its configuration, the open base, the clock. One record, made by the program's
/// entry and passed by reference. What a form works on isn't here: it gets that as its arguments.
struct Proceso : Configurado {
    /// `suFormulario` is the number of a module's own form; the launcher has none.
    Proceso(const Reloj& unReloj, Formularios losConocidos, QString suFormulario)
        : Configurado{
              .reloj = unReloj, .formularios = std::move(losConocidos), .numFormulario = std::move(suFormulario)} {}
    Proceso(const Configurado& configurado, std::unique_ptr<Base> base)
        : Configurado(configurado), baseDatos(std::move(base)) {}

    std::unique_ptr<Base> baseDatos;
};

/// What another thread works with: what is configured, copied, and the same base, which that thread opens for itself,
/// since a connection belongs to the thread that has opened it.
class ProcesoAparte {
  public:
    explicit ProcesoAparte(const Proceso& proceso)
        : m_configurado(static_cast<const Configurado&>(proceso)), m_ruta(proceso.baseDatos->Ruta()) {}

    /// Raises `ErrorBase`.
    [[nodiscard]] Proceso Abre() const { return {m_configurado, Base::Abre(m_ruta)}; }

  private:
    Configurado m_configurado;
    QString m_ruta;
};

} // namespace xa518
