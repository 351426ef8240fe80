#ifndef TORNIK_SOUND_SOUNDENGINE_H
#define TORNIK_SOUND_SOUNDENGINE_H

#include <memory>

class CSoundWorker;

/**
 * The worker that all players of the program share, with the mixer and the device behind it. It is
 * made by the first call and its threads end with the application object. Main thread only.
 */
std::shared_ptr<CSoundWorker> sharedSoundWorker();

#endif
