// SPDX-License-Identifier: GPL-3.0-or-later
// Linked with every object of one room: the link fails when the room reaches above its floor.
int main()
{
    return 0;
}
