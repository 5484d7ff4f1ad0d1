#include "app/Forms.h"

#include "form518/Form0518.h"

namespace xa518 {

Formularios FormulariosConocidos() {
    return {Formulario0518()};
}

} // namespace xa518
