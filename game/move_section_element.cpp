#include "game/move_section_element.h"

namespace velmora {

void MoveSectionElement::reset() {
    type = ElementType::move;
    id = 0;
    pid = 0;
    move_number = -1;
    color = Side::white;
    printed = false;
    text_begin = 0;
    text_end = 0;
    san.clear();
    nag.clear();
    comment.clear();
    result.clear();
    children.clear();
}

}  // namespace velmora
