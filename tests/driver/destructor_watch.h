/// Watches the destructors of a library's global objects, from their registration
/// when the library is loaded to their run when it is unloaded.
#ifndef KX_TESTS_DRIVER_DESTRUCTOR_WATCH_H
#define KX_TESTS_DRIVER_DESTRUCTOR_WATCH_H

class DestructorWatch
{
public:
    /// Watches libraries whose file name contains `libraryName`, until destroyed.
    /// Libraries loaded under it must be unloaded under it.
    explicit DestructorWatch(const char* libraryName);
    virtual ~DestructorWatch();

    /// The library has just registered a destructor: its object is complete.
    virtual void destructorRegistered() = 0;

    /// One registered destructor of the library has just returned.
    virtual void destructorRan() = 0;

    bool watches(const void* libraryHandle) const;

private:
    const char* m_libraryName;
};

#endif
