// Only in programs for the thread sanitizer. Qt is not built for it, so that it does not see that a call which one
// thread posts to another's objects happens after it was posted. This function stands before Qt's own and posts a call
// that tells the sanitizer. Real races are still found.

#include <QMetaObject>
#include <QObject>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace
{

/// Owns a reference to the call that was to be posted, and makes it.
class OrderedCall : public QtPrivate::QSlotObjectBase
{
public:
    explicit OrderedCall(QtPrivate::QSlotObjectBase *posted) : QSlotObjectBase(&run), call(posted)
    {
        __tsan_release(this);
    }

private:
    static void run(int operation, QSlotObjectBase *self, QObject *receiver, void **arguments, bool *)
    {
        auto *ordered = static_cast<OrderedCall *>(self);
        __tsan_acquire(ordered);
        if (operation == Call) {
            ordered->call->call(receiver, arguments);
            __tsan_release(ordered); // the thread that posted it may have the last reference
        } else if (operation == Destroy) {
            ordered->call->destroyIfLastRef();
            delete ordered;
        }
    }

    QtPrivate::QSlotObjectBase *const call;
};

} // namespace

bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type,
                                   void *returned)
{
    using Function = bool (*)(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *);
    static const auto invokeOfQt = reinterpret_cast<Function>(
        dlsym(RTLD_NEXT,
              "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv"));
    return invokeOfQt(object, new OrderedCall(slot), type, returned);
}
