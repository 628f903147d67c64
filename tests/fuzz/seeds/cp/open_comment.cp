1 #2
{ /* never closed