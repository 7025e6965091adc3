[Settings]
IsAnalogue=maybe
