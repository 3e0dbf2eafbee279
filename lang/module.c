/* A language module holds resources and no code. Something has to be compiled all the same. */
const char vmlangModule[] = "VMLANG";
