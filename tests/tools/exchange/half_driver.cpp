// A library that has one of the driver's entry points.
extern "C" __attribute__((visibility("default"))) int intf_initProperty()
{
    return 1;
}
