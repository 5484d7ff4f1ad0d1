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

/// The answer of a rule: passed, or refused with its message and the name of the field at fault.
/// A refusal without a message is a silent one.
struct Veredicto {
    bool pasa = true;
    std::optional<Mensaje> mensaje;
    QString campo;

    [[nodiscard]] static Veredicto Bien() { return {}; }
    [[nodiscard]] static Veredicto Callado(QString campo) { return {false, std::nullopt, std::move(campo)}; }
    [[nodiscard]] static Veredicto Rechaza(Mensaje mensaje, QString campo) {
        return {false, std::move(mensaje), std::move(campo)};
    }
    /// Refused with the stop sign, which is what nearly every rule shows.
    [[nodiscard]] static Veredicto Critico(const QString& texto, const QString& campo = {}) {
        return Rechaza({Icono::Critico, texto, {}}, campo);
    }
    explicit operator bool() const { return pasa; }
};

/// The verdict of one check: refused when the fault is there.
[[nodiscard]] inline Veredicto CriticoSi(bool falta, const QString& texto, const QString& campo) {
    return falta ? Veredicto::Critico(texto, campo) : Veredicto::Bien();
}

} // namespace xa518
