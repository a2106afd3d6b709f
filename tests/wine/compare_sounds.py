"""Whether a recording holds a sound: compare_sounds.py SOUND.wav RECORDING.wav

Both are brought to the same rate; the sound is laid on the recording where it fits best, and the
correlation there, 1 for the same shape, must be nearly that."""
import array
import sys
import wave

RATE = 11025  # samples a second: enough to know a bell by


def read(path):
    """The samples of a file of 16 bits, channels averaged, at RATE."""
    with open(path, 'rb') as file:
        head = file.read(44)
        # The length in the head of a recording that was cut short says nothing.
        rest = file.read()
    with wave.open(path) as sound:
        channels, width, rate = sound.getnchannels(), sound.getsampwidth(), sound.getframerate()
    assert head[:4] == b'RIFF' and width in (1, 2), 'not a wave file that is known here'
    if width == 1:
        samples = [byte - 128 for byte in rest]
    else:
        samples = array.array('h', rest[:len(rest) // 2 * 2])
    mono = [sum(samples[i:i + channels]) / channels
            for i in range(0, len(samples) - channels + 1, channels)]
    step = rate / RATE
    return [mono[int(i * step)] for i in range(int(len(mono) / step))]


def correlation(one, other):
    energy = (sum(x * x for x in one) * sum(x * x for x in other)) ** 0.5
    return sum(x * y for x, y in zip(one, other)) / energy if energy else 0.0


def main():
    sound, recording = read(sys.argv[1]), read(sys.argv[2])
    loud = [i for i, x in enumerate(recording) if abs(x) > 300]
    assert loud, 'the recording is silent'
    begin = next(i for i, x in enumerate(sound) if abs(x) > 300)
    part = sound[begin:begin + RATE]
    around = max(loud[0] - 20, 0)
    best = max(correlation(part, recording[start:start + len(part)])
               for start in range(around, around + 40))
    heard = (loud[-1] - loud[0]) / RATE
    last = max(i for i, x in enumerate(sound) if abs(x) > 300)
    print(f'  {heard:.2f} s of {(last - begin) / RATE:.2f} s, correlation {best:.3f}')
    assert best > 0.95, 'it is another sound'
    assert heard > 0.9 * (last - begin) / RATE, 'it was cut short'


main()
