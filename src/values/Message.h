#pragma once

#include <QString>

#include <optional>

namespace xa518 {

enum class Icono { Ninguno, Informacion, Exclamacion, Pregunta, Critico };

/// What a person is told: rules hand it out, windows and the batch tool show it in their own way.
/// An empty title stands for the caption of the form that shows it.
struct Mensaje {
    Icono icono = Icono::Ninguno;
    QString texto;
    QString titulo;

    bool operator==(const Mensaje&) const = default;
};

/// The answer of a rule: passed, or refused, and then always with what a person is told.
class [[nodiscard]] Veredicto {
  public:
    [[nodiscard]] static Veredicto Bien() { return {}; }
    [[nodiscard]] static Veredicto Rechaza(Mensaje motivo) { return Veredicto(std::move(motivo)); }
    /// Refused with the stop sign, which is what nearly every rule shows.
    [[nodiscard]] static Veredicto Critico(const QString& texto) { return Rechaza({Icono::Critico, texto, {}}); }

    explicit operator bool() const { return !m_motivo; }
    /// Of a refusal; asking a pass for it raises `std::bad_optional_access`.
    [[nodiscard]] const Mensaje& Motivo() const { return m_motivo.value(); }

  protected:
    Veredicto() = default;
    explicit Veredicto(Mensaje motivo) : m_motivo(std::move(motivo)) {}

  private:
    std::optional<Mensaje> m_motivo;
};

/// The answer of a rule over a form whose fields `Campo` enumerates: a refusal may name the one at fault. What is still
/// to be finished isn't judged yet: such a rule gives no verdict at all (`std::optional`), and nothing is said.
template <typename Campo>
class [[nodiscard]] VeredictoDe : public Veredicto {
  public:
    /// A verdict that names no field.
    VeredictoDe(Veredicto veredicto) : Veredicto(std::move(veredicto)) {} // NOLINT(google-explicit-constructor)

    [[nodiscard]] static VeredictoDe Rechaza(Mensaje motivo, std::optional<Campo> campo) {
        VeredictoDe veredicto{Veredicto::Rechaza(std::move(motivo))};
        veredicto.m_campo = campo;
        return veredicto;
    }
    [[nodiscard]] static VeredictoDe Critico(const QString& texto, std::optional<Campo> campo) {
        return Rechaza({Icono::Critico, texto, {}}, campo);
    }
    /// The verdict of one check: refused when the fault is there.
    [[nodiscard]] static VeredictoDe CriticoSi(bool falta, const QString& texto, Campo campo) {
        return falta ? Critico(texto, campo) : VeredictoDe(Veredicto::Bien());
    }

    [[nodiscard]] std::optional<Campo> ElCampo() const { return m_campo; }

  private:
    std::optional<Campo> m_campo;
};

} // namespace xa518
