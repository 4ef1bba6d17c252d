// Only carries the precompiled Qt header that the rooms share.
