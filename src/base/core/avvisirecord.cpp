#include "avvisirecord.h"

AvvisiRecord& AvvisiRecord::Istanza() {
    static AvvisiRecord avvisi;
    return avvisi;
}
