#pragma once

#include "values/Progress.h"

#include <QObject>
#include <QString>

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

class QWidget;

namespace xa518 {

/// A long work over a window, and what becomes of it when it doesn't come to its end.
struct TareaPedida {
    QString titulo;                                            ///< what is being done: "Grabando la declaración"
    bool seDetiene = true;                                     ///< the person may stop it
    std::function<void(const std::exception_ptr&)> alFallar{}; ///< instead of the general error handler
};

/// Runs `trabajo` in a thread of its own, and then `alTerminar` in this one. The window stays alive meanwhile, and
/// takes neither keys nor clicks; a work that lasts shows a box over it with its progress, the time left and, where it
/// may be stopped, a button for that. A short work is waited for, so that nothing flickers: then `alTerminar` has run
/// when this returns. A stopped work, or one whose window has gone, ends without a word. `trabajo` must not touch what
/// this thread works with meanwhile: it opens a base of its own.
void LanzaTarea(QWidget& ventana, TareaPedida pedida, std::function<void(Avance&)> trabajo,
                std::function<void()> alTerminar);

/// The same for a work with a result, which `alTerminar` gets.
template <typename Trabajo, typename AlTerminar>
void CorreTarea(QWidget& ventana, TareaPedida pedida, Trabajo trabajo, AlTerminar alTerminar) {
    const auto resultado = std::make_shared<std::optional<std::invoke_result_t<Trabajo&, Avance&>>>();
    LanzaTarea(
        ventana, std::move(pedida),
        [resultado, trabajo = std::move(trabajo)](Avance& avance) mutable { resultado->emplace(trabajo(avance)); },
        [resultado, alTerminar = std::move(alTerminar)]() mutable { alTerminar(*std::move(*resultado)); });
}

} // namespace xa518
