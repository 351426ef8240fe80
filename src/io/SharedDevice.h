#ifndef TORNIK_IO_SHAREDDEVICE_H
#define TORNIK_IO_SHAREDDEVICE_H

/**
 * One object for all who ask for it: made for the first of them, freed with the last. Main thread
 * only.
 */
template <typename Device>
class SharedDevice
{
public:
    static Device* take()
    {
        if (s_references++ == 0)
            s_device = new Device; // freed by the last giveBack()
        return s_device;
    }

    static void giveBack()
    {
        if (s_references == 0 || --s_references > 0)
            return;
        delete s_device;
        s_device = nullptr;
    }

private:
    inline static Device* s_device = nullptr;
    inline static int s_references = 0;
};

#endif
