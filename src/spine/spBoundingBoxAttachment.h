#pragma once

#include "spine/spVertexAttachment.h"

// A polygon for hit tests; never drawn.
struct spBoundingBoxAttachment {
    spVertexAttachment super;
};

spBoundingBoxAttachment* spBoundingBoxAttachment_create(const char* name);
