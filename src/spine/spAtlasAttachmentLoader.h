#pragma once

#include "spine/spAttachmentLoader.h"

struct spAtlas;

// Loader that takes the texture regions of region and mesh attachments from
// an atlas, by the attachment's path.
struct spAtlasAttachmentLoader {
    spAttachmentLoader super;
    spAtlas* atlas;
};

spAtlasAttachmentLoader* spAtlasAttachmentLoader_create(spAtlas* atlas);
