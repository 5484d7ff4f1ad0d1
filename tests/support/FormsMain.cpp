#include "support/FormDriver.h"
#include "support/NoticeScript.h"
#include "widgets/Application.h"

namespace xa518 {

AvisosDePrueba& AvisosDelPrograma() {
    static AvisosDePrueba avisos;
    return avisos;
}

namespace {

class AlFinalDeCadaPrueba final : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& /*prueba*/) override {
        AvisosDelPrograma().Comprueba();
        CompruebaAperturas();
    }
};

} // namespace
} // namespace xa518

/// Tests with widgets need the application object, and no screen.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const xa518::Aplicacion aplicacion(argc, argv, xa518::AvisosDelPrograma());
    auto* fin = new xa518::AlFinalDeCadaPrueba; // the listeners own it
    testing::UnitTest::GetInstance()->listeners().Append(fin);
    return RUN_ALL_TESTS();
}
