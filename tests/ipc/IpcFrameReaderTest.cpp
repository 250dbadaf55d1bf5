// The frame reader on a socket pair: messages that arrive back to back are read with the
// next header taken ahead, and that must never change which bytes make up which message.
#include "ipc/IpcFrameReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>
#include <vector>

namespace {

using Result = IpcFrameReader::Result;

std::vector<uint8_t> frame(int16_t validFlag, uint16_t subType, const std::string& body,
                           uint32_t dataLen) {
    IpcMsgHeader h;
    h.validFlag = validFlag;
    h.MainType = 1000;
    h.SubType = subType;
    h.dataLen = dataLen;
    std::vector<uint8_t> bytes(kIpcHeaderSize + body.size());
    ipcEncodeHeader(h, bytes.data());
    std::copy(body.begin(), body.end(), bytes.begin() + kIpcHeaderSize);
    return bytes;
}
std::vector<uint8_t> frame(uint16_t subType, const std::string& body) {
    return frame(1, subType, body, uint32_t(body.size()));
}

class IpcFrameReaderTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, m_pair), 0);
        // A reader that waited for bytes nobody sends fails the test instead of hanging it.
        timeval limit{5, 0};
        ::setsockopt(m_pair[1], SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    }
    void TearDown() override {
        ::close(m_pair[0]);
        ::close(m_pair[1]);
    }
    void write(const std::vector<uint8_t>& bytes) {
        ASSERT_EQ(::send(m_pair[0], bytes.data(), bytes.size(), 0), ssize_t(bytes.size()));
    }
    void write(const std::vector<std::vector<uint8_t>>& parts) {
        std::vector<uint8_t> all;
        for (const auto& p : parts)
            all.insert(all.end(), p.begin(), p.end());
        write(all);
    }
    // The next message's SubType and body, or an empty body and SubType 0 on another result.
    std::pair<uint16_t, std::string> next(Result* result = nullptr) {
        IpcMsgBlock block;
        Result r = reader.read(m_pair[1], &block);
        if (result)
            *result = r;
        if (r != Result::Message)
            return {0, ""};
        IpcMsgHeader h = ipcBlockHeader(block.get());
        const char* body = reinterpret_cast<const char*>(ipcBlockBody(block.get()));
        return {h.SubType, std::string(body, h.dataLen)};
    }

    int m_pair[2] = {-1, -1};
    IpcFrameReader reader;
};

} // namespace

TEST_F(IpcFrameReaderTest, BackToBackMessagesKeepTheirFramingWithHeadersTakenAhead) {
    write({frame(1, "first"), frame(2, ""), frame(3, std::string(300, 'x')), frame(4, "end")});
    EXPECT_EQ(next(), std::make_pair(uint16_t(1), std::string("first")));
    EXPECT_EQ(next(), std::make_pair(uint16_t(2), std::string()));
    EXPECT_EQ(next(), std::make_pair(uint16_t(3), std::string(300, 'x')));
    // The last one has nothing behind it: the read must not wait for a header to take.
    EXPECT_EQ(next(), std::make_pair(uint16_t(4), std::string("end")));

    Result result = Result::Message;
    ::shutdown(m_pair[0], SHUT_WR);
    testing::internal::CaptureStderr();
    next(&result);
    std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(result, Result::HeadError);
    EXPECT_NE(log.find("!!!!------Connect rest by peer!\n"), std::string::npos);
}

TEST_F(IpcFrameReaderTest, SkippedHeaderLeavesItsBodyToBeReadAsTheNextHeader) {
    // The skipped header's 24 "body" bytes are a complete header of their own, taken ahead
    // together with the first message's body.
    std::vector<uint8_t> hidden = frame(7, "");
    write({frame(1, "a"), frame(0, 8, "", 24), hidden, frame(9, "z")});
    EXPECT_EQ(next(), std::make_pair(uint16_t(1), std::string("a")));
    Result result = Result::Message;
    next(&result);
    EXPECT_EQ(result, Result::Skipped);
    EXPECT_EQ(next(), std::make_pair(uint16_t(7), std::string()));
    EXPECT_EQ(next(), std::make_pair(uint16_t(9), std::string("z")));
}

TEST_F(IpcFrameReaderTest, HeaderSplitAcrossWritesIsCompletedFromTheStream) {
    std::vector<uint8_t> second = frame(2, "tail");
    std::vector<uint8_t> firstPart(second.begin(), second.begin() + 10);
    std::vector<uint8_t> rest(second.begin() + 10, second.end());
    write({frame(1, "head"), firstPart});
    EXPECT_EQ(next(), std::make_pair(uint16_t(1), std::string("head")));
    write(rest);
    EXPECT_EQ(next(), std::make_pair(uint16_t(2), std::string("tail")));
}

TEST_F(IpcFrameReaderTest, BrokenStreamsEndTheConnectionAndResetForgetsBytesTakenAhead) {
    Result result = Result::Message;
    IpcMsgHeader huge;
    huge.dataLen = kIpcMaxDataLen + 1;
    std::vector<uint8_t> raw(kIpcHeaderSize);
    ipcEncodeHeader(huge, raw.data());
    write({frame(1, "ok"), raw});
    EXPECT_EQ(next(), std::make_pair(uint16_t(1), std::string("ok")));
    next(&result);
    EXPECT_EQ(result, Result::TooLarge);
    EXPECT_EQ(reader.header().dataLen, kIpcMaxDataLen + 1);

    // Frame 3's header is taken ahead with frame 2's body; after a reconnect it is void.
    write({frame(2, "x"), frame(3, "")});
    EXPECT_EQ(next().first, 2);
    reader.reset();
    write(frame(4, "fresh"));
    EXPECT_EQ(next(), std::make_pair(uint16_t(4), std::string("fresh")));

    write(frame(1, 5, "abc", 10)); // the peer goes away inside the body
    ::shutdown(m_pair[0], SHUT_WR);
    testing::internal::CaptureStderr();
    next(&result);
    std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(result, Result::BodyError);
    EXPECT_NE(log.find("ss32Size=10,s32ReadSize = 3\n"), std::string::npos);
}

TEST_F(IpcFrameReaderTest, OneReadFramesEveryCompleteMessageInOrderAndLeavesThePartialOne) {
    // Small messages, a skipped header, a body larger than a whole read, then half of one
    // more: each batch holds what is complete, in stream order, and nothing else.
    std::vector<uint8_t> stream;
    for (uint16_t i = 0; i < 200; ++i) {
        std::vector<uint8_t> f = frame(i, std::string(i % 9, char('a' + i % 26)));
        stream.insert(stream.end(), f.begin(), f.end());
    }
    std::vector<uint8_t> skipped = frame(0, 500, "", 0);
    stream.insert(stream.end(), skipped.begin(), skipped.end());
    const std::string big(IpcFrameReader::kChunkSize + 1000, 'B');
    std::vector<uint8_t> large = frame(600, big);
    stream.insert(stream.end(), large.begin(), large.end());
    std::vector<uint8_t> last = frame(700, "tail");
    stream.insert(stream.end(), last.begin(), last.begin() + 14);
    write(stream);

    std::vector<IpcMsgBlock> got;
    ASSERT_EQ(reader.readBatch(m_pair[1], &got), Result::Message);
    ASSERT_EQ(got.size(), 200u); // one read: the large body was not complete in it
    for (uint16_t i = 0; i < 200; ++i) {
        IpcMsgHeader h = ipcBlockHeader(got[i].get());
        ASSERT_EQ(h.SubType, i);
        ASSERT_EQ(h.dataLen, uint32_t(i % 9));
    }
    ASSERT_EQ(reader.readBatch(m_pair[1], &got), Result::Message);
    ASSERT_EQ(got.size(), 201u);
    const IpcMsgHeader bigHeader = ipcBlockHeader(got[200].get());
    EXPECT_EQ(bigHeader.SubType, 600);
    ASSERT_EQ(bigHeader.dataLen, big.size());
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(ipcBlockBody(got[200].get())), big.size()),
              big);
    write(std::vector<uint8_t>(last.begin() + 14, last.end()));
    ASSERT_EQ(reader.readBatch(m_pair[1], &got), Result::Message);
    ASSERT_EQ(got.size(), 202u);
    EXPECT_EQ(ipcBlockHeader(got[201].get()).SubType, 700);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(ipcBlockBody(got[201].get())), 4), "tail");
}

TEST_F(IpcFrameReaderTest, AnErrorBehindFramedMessagesComesWithTheNextRead) {
    IpcMsgHeader huge;
    huge.dataLen = kIpcMaxDataLen + 1;
    std::vector<uint8_t> raw(kIpcHeaderSize);
    ipcEncodeHeader(huge, raw.data());
    write({frame(1, "a"), frame(2, "b"), raw});
    std::vector<IpcMsgBlock> got;
    ASSERT_EQ(reader.readBatch(m_pair[1], &got), Result::Message);
    ASSERT_EQ(got.size(), 2u);
    EXPECT_EQ(ipcBlockHeader(got[1].get()).SubType, 2);
    EXPECT_EQ(reader.readBatch(m_pair[1], &got), Result::TooLarge);
    EXPECT_EQ(got.size(), 2u);
    EXPECT_EQ(reader.header().dataLen, kIpcMaxDataLen + 1);
}
