#include "host/LabelEngine.h"

namespace quellbrook {

LabelEngine& GetLabelEngine() {
    static LabelEngine engine;
    return engine;
}

}  // namespace quellbrook
