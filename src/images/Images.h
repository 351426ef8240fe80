#ifndef TORNIK_IMAGES_IMAGES_H
#define TORNIK_IMAGES_IMAGES_H

/**
 * Makes the pictures below ":/images" known; call it before the first use of one, as often as you
 * like. Without it the linker would leave them out of the program.
 */
void initImages();

#endif
