// What loading a shared library costs when there is nothing in it.
